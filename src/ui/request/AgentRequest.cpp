// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/request/AgentRequest.h"

#include "base/PlainText.h"
#include "core/Logging.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// What the service says is shown up to this length.
constexpr qsizetype longestMessage = 300;

QUrl requestAddress(const QUrl& baseAddress)
{
    if (!baseAddress.isValid() || baseAddress.host().isEmpty())
        return {};
    QString path = baseAddress.path();
    if (path.endsWith(u'/'))
        path.chop(1);
    QUrl address = baseAddress;
    address.setPath(path + "/agent-request"_L1);
    return address;
}

/// On one line, and of a length that can be shown. Nothing in it steers what shows it.
QString shown(const QString& message)
{
    QString line = message.trimmed();
    for (QChar& character : line) {
        if (character.isSpace())
            character = u' ';
    }
    line = QString::fromStdString(PlainText::printable(line.toStdString()));
    if (line.size() <= longestMessage)
        return line;
    line.truncate(line.at(longestMessage - 2).isHighSurrogate() ? longestMessage - 2 : longestMessage - 1);
    return line + u'…';
}

} // namespace

QString AgentRequest::Failure::description() const
{
    const auto text = [](const char* source) { return QCoreApplication::translate("AgentRequest", source); };
    switch (kind) {
    case Case::server:
        return message.isEmpty()
            ? text(QT_TRANSLATE_NOOP("AgentRequest", "Couldn't send that — try again in a moment."))
            : message;
    case Case::rateLimited:
        return text(QT_TRANSLATE_NOOP("AgentRequest", "You've sent a few already — try again tomorrow."));
    case Case::unreachable:
        return text(QT_TRANSLATE_NOOP(
            "AgentRequest", "Couldn't reach the server — check your internet connection and try again."));
    case Case::late:
        return text(QT_TRANSLATE_NOOP("AgentRequest", "The server didn't answer — try again in a moment."));
    case Case::noAddress:
        return text(QT_TRANSLATE_NOOP("AgentRequest", "This copy of Tarvik can't send requests."));
    }
    return {};
}

AgentRequest::AgentRequest(const QUrl& baseAddress, std::chrono::milliseconds limit)
    : m_address(requestAddress(baseAddress))
    , m_limit(limit)
{
}

void AgentRequest::send(const QString& name, const QString& note)
{
    if (isSending())
        return;
    if (!canSend()) {
        QMetaObject::invokeMethod(
            this, [this] { fail({Failure::Case::noAddress}); }, Qt::QueuedConnection);
        return;
    }
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    // A connection that is left from the last request may have ended, and what is sent over that is lost.
    m_network->clearConnectionCache();
    const QJsonObject body{{u"name"_s, name.trimmed()}, {u"note"_s, note.trimmed()}};
    m_post = std::make_unique<JsonPost>(
        *m_network, m_address, QJsonDocument(body).toJson(QJsonDocument::Compact), m_limit);
    connect(m_post.get(), &JsonPost::answered, this, &AgentRequest::take);
    Q_EMIT isSendingChanged();
}

void AgentRequest::cancel()
{
    if (!isSending())
        return;
    m_post.reset();
    Q_EMIT isSendingChanged();
}

std::optional<AgentRequest::Failure> AgentRequest::failureOf(int status, const QByteArray& body)
{
    if (status == 200 || status == 201)
        return std::nullopt;
    if (status == 429)
        return Failure{Failure::Case::rateLimited};
    return Failure{Failure::Case::server, shown(QJsonDocument::fromJson(body).object()["error"_L1].toString())};
}

void AgentRequest::take(const JsonPost::Answer& answer)
{
    // It is still telling.
    m_post.release()->deleteLater();
    Q_EMIT isSendingChanged();
    if (answer.status == 0) {
        qCCritical(logAgentRequest, "agent request got no answer: %s", qUtf8Printable(answer.error));
        fail({answer.isLate ? Failure::Case::late : Failure::Case::unreachable});
        return;
    }
    const std::optional<Failure> failure = failureOf(answer.status, answer.body);
    if (!failure) {
        Q_EMIT sent();
        return;
    }
    if (failure->kind != Failure::Case::rateLimited)
        qCCritical(logAgentRequest, "agent request failed: %d", answer.status);
    fail(*failure);
}

} // namespace Tarvik
