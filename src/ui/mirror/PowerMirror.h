// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"

namespace Tarvik {

/// The power monitor of the running Tarvik.
class PowerMirror : public PropertyMirror {
    Q_OBJECT
    Q_PROPERTY(bool isOnAC READ isOnAC NOTIFY isOnACChanged)
    Q_PROPERTY(QVariant batteryPercent READ batteryPercent NOTIFY batteryPercentChanged)
    Q_PROPERTY(bool hasBattery READ hasBattery NOTIFY hasBatteryChanged)
    Q_PROPERTY(bool lidClosed READ lidClosed NOTIFY lidClosedChanged)

public:
    explicit PowerMirror(const QDBusConnection& bus);

    bool isOnAC() const { return value("isOnAC").toBool(); }
    /// An integer; undefined in QML when unknown.
    QVariant batteryPercent() const;
    bool hasBattery() const { return value("hasBattery").toBool(); }
    bool lidClosed() const { return value("lidClosed").toBool(); }

Q_SIGNALS:
    void isOnACChanged();
    void batteryPercentChanged();
    void hasBatteryChanged();
    void lidClosedChanged();
};

} // namespace Tarvik
