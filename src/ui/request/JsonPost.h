// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/request/SentOnce.h"

#include <QByteArray>
#include <QNetworkReply>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

class QNetworkAccessManager;
class QUrl;

namespace Tarvik {

/// JSON on its way to a web service by HTTP, until it is answered. Follows no redirection, keeps no cookie and has
/// nothing from a cache. Its end takes it back.
class JsonPost : public QObject {
    Q_OBJECT

public:
    struct Answer {
        /// Of HTTP; 0 without an answer.
        int status = 0;
        /// As much of it as has come in time, if it was no more than fits.
        QByteArray body;
        /// Why there is no answer, for a log.
        QString error;
        /// There is none because the time is over.
        bool isLate = false;
    };

    /// Of a longer body nothing is kept, in bytes.
    static constexpr qsizetype longestBody = 64 * 1024;

    /// The answer is whatever has come after `limit`. The manager must outlive the post.
    JsonPost(
        QNetworkAccessManager& manager, const QUrl& address, const QByteArray& json, std::chrono::milliseconds limit);

Q_SIGNALS:
    /// Once.
    void answered(const Tarvik::JsonPost::Answer& answer);

private:
    void read();
    void end();

    SentOnce m_json;
    std::unique_ptr<QNetworkReply> m_reply;
    QTimer m_deadline;
    Answer m_answer;
};

} // namespace Tarvik
