// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"
#include "platform/linux/sleep/DisplaySwitch.h"

#include <QDBusMessage>

#include <optional>

namespace Tarvik {

/// By a call of the desktop's own service.
class BusDisplaySwitch final : public DisplaySwitch {
public:
    ~BusDisplaySwitch() override;

    BusDisplaySwitch(const BusDisplaySwitch&) = delete;
    BusDisplaySwitch& operator=(const BusDisplaySwitch&) = delete;

    static std::unique_ptr<BusDisplaySwitch> gnomeScreenSaver(const QDBusConnection& sessionBus);
    static std::unique_ptr<BusDisplaySwitch> mutterPowerSave(const QDBusConnection& sessionBus);
    static std::unique_ptr<BusDisplaySwitch> kdeShortcut(const QDBusConnection& sessionBus);

    void switchOff(Receiver done) override;
    void switchOn() override;

private:
    BusDisplaySwitch(QDBusConnection bus, QDBusMessage off, std::optional<QDBusMessage> on = {});

    QDBusConnection m_bus;
    QDBusMessage m_off;
    /// Where activity does not switch on.
    std::optional<QDBusMessage> m_on;
    bool m_isOff = false;
    DBusCall m_call;
};

} // namespace Tarvik
