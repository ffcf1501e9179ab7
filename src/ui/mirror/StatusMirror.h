// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"
#include "ui/mirror/WhyMirror.h"

namespace Tarvik {

/// What the running Tarvik does and why, as far as the windows show it, and what can be asked of it. A request that
/// fails is logged.
class StatusMirror : public Tarvik::PropertyMirror {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    // clang-format off
    Q_PROPERTY(bool isAwake READ isAwake NOTIFY isAwakeChanged)
    Q_PROPERTY(QString reason READ reason NOTIFY reasonChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY subtitleChanged)
    Q_PROPERTY(QString details READ details NOTIFY detailsChanged)
    Q_PROPERTY(bool isTimedSessionActive READ isTimedSessionActive NOTIFY isTimedSessionActiveChanged)
    Q_PROPERTY(bool isOnAC READ isOnAC NOTIFY isOnACChanged)
    Q_PROPERTY(bool hasBattery READ hasBattery NOTIFY hasBatteryChanged)
    Q_PROPERTY(QVariant batteryPercent READ batteryPercent NOTIFY batteryPercentChanged)
    Q_PROPERTY(QString thermalText READ thermalText NOTIFY thermalTextChanged)
    Q_PROPERTY(bool upgradePending READ isUpgradePending NOTIFY upgradePendingChanged)
    Q_PROPERTY(Tarvik::WhyMirror* why READ why CONSTANT)
    // clang-format on

public:
    explicit StatusMirror(const QDBusConnection& bus);

    bool isAwake() const { return value("isAwake").toBool(); }
    QString reason() const { return value("reason").toString(); }
    QString subtitle() const { return value("subtitle").toString(); }
    QString details() const { return value("details").toString(); }
    bool isTimedSessionActive() const { return value("isTimedSessionActive").toBool(); }
    bool isOnAC() const { return value("isOnAC").toBool(); }
    bool hasBattery() const { return value("hasBattery").toBool(); }
    /// An integer; undefined in QML when unknown.
    QVariant batteryPercent() const;
    /// "normal", "warm", "hot" or "very hot", in the language of the user.
    QString thermalText() const { return value("thermalText").toString(); }

    /// Another build is installed, into which Tarvik restarts later.
    bool isUpgradePending() const { return value("upgradePending").toBool(); }
    /// What is behind all of these.
    WhyMirror* why() { return &m_why; }

    /// Starts a timed session in place of a running one; 0 ends it.
    Q_INVOKABLE void setTimedSession(int minutes);
    Q_INVOKABLE void lockScreen();
    /// Ends Tarvik, not this process.
    Q_INVOKABLE void quit();

Q_SIGNALS:
    void isAwakeChanged();
    void reasonChanged();
    void subtitleChanged();
    void detailsChanged();
    void isTimedSessionActiveChanged();
    void isOnACChanged();
    void hasBatteryChanged();
    void batteryPercentChanged();
    void thermalTextChanged();
    void upgradePendingChanged();

private:
    WhyMirror m_why;
};

} // namespace Tarvik
