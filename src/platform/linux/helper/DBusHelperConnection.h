// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusCalls.h"
#include "dbus/DBusSignal.h"
#include "platform/HelperConnection.h"

#include <QDBusConnection>
#include <QVariantList>

#include <chrono>
#include <vector>

namespace Tarvik {

/// The background helper on the system bus, see com.morvanta.Tarvik.HelperProtocol1.xml. Every call goes over the one
/// connection, by which the helper tells its callers apart; the bus starts the helper for all but a heartbeat. A call
/// that a helper does not answer because it leaves is made once more, to the next helper.
class DBusHelperConnection final : public HelperConnection {
public:
    /// A helper that takes longer hangs.
    static constexpr std::chrono::seconds patience{10};

    /// `label` is the helper's name on the bus.
    DBusHelperConnection(const QDBusConnection& systemBus, const QString& label);
    DBusHelperConnection(const DBusHelperConnection&) = delete;
    DBusHelperConnection& operator=(const DBusHelperConnection&) = delete;

    void setKeepAwake(
        bool enabled, std::function<void(bool ok, const QString& error)> reply, ErrorHandler failed) override;
    void heartbeat() override;
    void version(std::function<void(const QString& version)> reply, ErrorHandler failed) override;

private:
    struct Request {
        QString method;
        QVariantList arguments;
        /// What the reply must consist of.
        QString signature;
        std::function<void(const QVariantList& values)> reply;
        ErrorHandler failed;
        /// A helper that has left since is as good as none.
        bool needsHelperToStay = false;
        bool isRepeated = false;
    };

    void begin(Request request);
    void send(Request request);
    void takeAnswer(Request request, int departures, const QDBusMessage& answer);
    QDBusMessage call(const QString& method) const;
    void followOwner();
    void endOverride();
    void invalidate();

    QDBusConnection m_bus;
    QString m_label;
    BusNameWatch m_names;
    QString m_owner;
    /// How many owners of the name have left.
    int m_departures = 0;
    /// The owner holds the override for this connection.
    bool m_isOn = false;
    /// Until it is known whether a helper runs: without that nobody could tell that it has left.
    std::vector<Request> m_waiting;
    DBusCalls m_calls;
    DBusSignal m_loss;
};

} // namespace Tarvik
