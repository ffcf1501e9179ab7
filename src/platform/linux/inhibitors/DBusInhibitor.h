// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"
#include "platform/Clock.h"
#include "platform/linux/inhibitors/Inhibitor.h"

#include <QDBusUnixFileDescriptor>
#include <QString>
#include <QVariantList>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// One call of an "Inhibit" method and how its effect is taken back.
struct InhibitorRequest {
    QString service;
    QString path;
    QString interface;
    QVariantList arguments;
    /// The method that takes the answered cookie (u) back; empty where the answer is a file descriptor (h) that holds
    /// the inhibitor until it is closed.
    QString releaseMethod;
};

/// One inhibitor of one service: asked for while the service is there, given back on destruction, also when the service
/// answers only after that.
class DBusInhibitor final : public Inhibitor {
public:
    /// A service that has just come may have its name before its object, and logind grants nothing as long as the
    /// machine is on its way out of sleep: they are asked again after `retryTime`, so many times.
    static constexpr Seconds retryTime{1};
    static constexpr int retries = 5;

    /// `clock` must outlive the object.
    DBusInhibitor(QDBusConnection bus, InhibitorRequest request, Clock& clock, std::function<void()> onChange);
    ~DBusInhibitor() override;
    DBusInhibitor(const DBusInhibitor&) = delete;
    DBusInhibitor& operator=(const DBusInhibitor&) = delete;

    QString service() const override { return m_request.service; }
    State state() const override { return m_state; }
    int error() const override { return m_error; }
    void setOwner(const QString& owner) override;

private:
    void take();
    void receive(const QDBusMessage& answer);
    std::optional<int> accept(const QDBusMessage& answer);
    void abandonCall();
    void giveBack();

    QDBusConnection m_bus;
    InhibitorRequest m_request;
    Clock& m_clock;
    std::function<void()> m_onChange;
    /// The unique name of who has been asked.
    QString m_owner;
    State m_state = State::waiting;
    int m_error = 0;
    DBusCall m_call;
    std::unique_ptr<Timer> m_retry;
    int m_retriesLeft = 0;
    QDBusUnixFileDescriptor m_descriptor;
    QDBusMessage m_cookieRelease;
};

} // namespace Tarvik
