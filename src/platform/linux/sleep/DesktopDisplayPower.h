// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "platform/Clock.h"
#include "platform/DisplayPower.h"
#include "platform/linux/sleep/DisplayPowerRules.h"
#include "platform/linux/sleep/DisplaySwitch.h"

#include <QDBusConnection>
#include <QString>

#include <memory>
#include <optional>

namespace Tarvik {

class X11Connection;

/// By whoever rules the displays here: the desktop's own service, the compositor, or the X server.
class DesktopDisplayPower final : public DisplayPower {
public:
    /// The session's display.
    struct Display {
        /// Null for none.
        std::shared_ptr<X11Connection> x11;
        /// The absolute path of a Wayland compositor's socket; empty for none.
        QString waylandSocket;
    };

    /// `clock` must outlive the object.
    DesktopDisplayPower(QDBusConnection sessionBus, Display display, Clock& clock);
    ~DesktopDisplayPower() override;

    DesktopDisplayPower(const DesktopDisplayPower&) = delete;
    DesktopDisplayPower& operator=(const DesktopDisplayPower&) = delete;

    /// A call before the last one has been answered takes its place.
    void sleepNow(std::function<void(const QString& error)> done) override;
    void wake() override;

private:
    void begin();
    void tryNext();
    std::unique_ptr<DisplaySwitch> makeSwitch(DisplayWay way) const;
    void finish(const QString& error);

    QDBusConnection m_sessionBus;
    Display m_display;
    Clock& m_clock;
    std::optional<BusNameWatch> m_names;
    QList<DisplayWay> m_waysLeft;
    std::unique_ptr<DisplaySwitch> m_switch;
    std::unique_ptr<Timer> m_next;
    QString m_error;
    std::function<void(const QString& error)> m_done;
};

} // namespace Tarvik
