// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/request/JsonPost.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQmlIntegration>

#include <chrono>
#include <memory>
#include <optional>

namespace Tarvik {

/// Asks the product's web service for an agent that the catalogue does not know. Nothing of the network is set up
/// before the first request.
class AgentRequest : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings window has it.")
    Q_PROPERTY(bool canSend READ canSend CONSTANT)
    Q_PROPERTY(bool isSending READ isSending NOTIFY isSendingChanged)

public:
    /// Why a request was not taken.
    struct Failure {
        enum class Case {
            /// The service says why, in `message`.
            server,
            rateLimited,
            /// No answer has come.
            unreachable,
            late,
            /// There is no address to send it to.
            noAddress,
        };

        Case kind;
        QString message{};

        /// A sentence for the user.
        QString description() const;

        bool operator==(const Failure&) const = default;
    };

    static constexpr std::chrono::seconds defaultLimit{15};

    /// `baseAddress` is the web service's, HTTPS; without it nothing is ever sent. A request fails without an answer
    /// after `limit`.
    explicit AgentRequest(const QUrl& baseAddress, std::chrono::milliseconds limit = defaultLimit);

    bool canSend() const { return !m_address.isEmpty(); }
    bool isSending() const { return m_post != nullptr; }

    /// One at a time: whoever wants to send another one waits for this one or cancels it. Both texts are sent without
    /// the white space around them. Tells `sent` or `failed`, from the event loop.
    Q_INVOKABLE void send(const QString& name, const QString& note);
    /// Nothing is told of the request any more. It may have arrived.
    Q_INVOKABLE void cancel();

    /// What the service's answer means: nothing, where it has taken the request.
    static std::optional<Failure> failureOf(int status, const QByteArray& body);

Q_SIGNALS:
    void isSendingChanged();
    void sent();
    /// With a sentence for the user.
    void failed(const QString& description);

private:
    void take(const JsonPost::Answer& answer);
    void fail(const Failure& failure) { Q_EMIT failed(failure.description()); }

    const QUrl m_address;
    const std::chrono::milliseconds m_limit;
    /// From the first request on. It outlives each: its end would wait for a service that does not stop sending.
    std::unique_ptr<QNetworkAccessManager> m_network;
    std::unique_ptr<JsonPost> m_post;
};

} // namespace Tarvik
