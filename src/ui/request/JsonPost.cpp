// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/request/JsonPost.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

QNetworkRequest requestTo(const QUrl& address)
{
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
    request.setHeader(QNetworkRequest::UserAgentHeader, u"Tarvik"_s);
    // What is small already need not be unpacked to something that is not; and there is nothing more to send.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("Connection", "close");
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    return request;
}

} // namespace

JsonPost::JsonPost(
    QNetworkAccessManager& manager, const QUrl& address, const QByteArray& json, std::chrono::milliseconds limit)
    : m_json(json)
    , m_reply(manager.post(requestTo(address), &m_json))
{
    m_reply->setReadBufferSize(longestBody);
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        m_answer.isLate = true;
        end();
    });
    connect(m_reply.get(), &QNetworkReply::readyRead, this, &JsonPost::read);
    connect(m_reply.get(), &QNetworkReply::finished, this, &JsonPost::end);
    m_deadline.start(limit);
}

void JsonPost::read()
{
    m_answer.body += m_reply->read(longestBody + 1 - m_answer.body.size());
    if (m_answer.body.size() <= longestBody)
        return;
    m_answer.body.clear();
    end();
}

void JsonPost::end()
{
    m_deadline.stop();
    m_reply->disconnect(this);
    m_answer.body += m_reply->readAll().left(longestBody - m_answer.body.size());
    m_answer.status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    m_answer.error = m_answer.isLate ? u"No answer in time"_s : m_reply->errorString();
    Q_EMIT answered(m_answer);
}

} // namespace Tarvik
