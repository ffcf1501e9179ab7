// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "platform/linux/assertions/DesktopHoldRules.h"
#include "platform/linux/assertions/XfceIdleSuspend.h"

#include <functional>
#include <memory>

namespace Tarvik {

/// Follows what can be told about the desktop.
class DesktopFactsWatch final {
public:
    /// `currentDesktop` is the value of XDG_CURRENT_DESKTOP. `x11Screen` is a fact as it stands.
    DesktopFactsWatch(
        QDBusConnection systemBus, QDBusConnection sessionBus, const QString& currentDesktop, bool x11Screen);
    DesktopFactsWatch(const DesktopFactsWatch&) = delete;
    DesktopFactsWatch& operator=(const DesktopFactsWatch&) = delete;

    /// Both buses have told which services there are.
    bool isKnown() const { return m_systemNames.isKnown() && m_sessionNames.isKnown(); }
    const DesktopFacts& facts() const { return m_facts; }
    /// The unique name of whoever has the name `service`; empty when nobody has.
    QString owner(const QString& service) const;

    /// The facts have become known or have changed, or `service`, unless it is empty, has another owner or none.
    std::function<void(const QString& service)> onChange;

private:
    void update(const QString& service);
    void followXfce();
    void readSystemdVersion();

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    DesktopFacts m_facts;
    BusNameWatch m_systemNames;
    BusNameWatch m_sessionNames;
    std::unique_ptr<XfceIdleSuspend> m_xfce;
    DBusCall m_versionCall;
};

} // namespace Tarvik
