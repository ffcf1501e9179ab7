// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"

namespace Tarvik {

/// The coordinator of the running Tarvik, and what can be asked of it. A request that fails is logged.
class CoordinatorMirror : public PropertyMirror {
    Q_OBJECT
    // clang-format off
    Q_PROPERTY(bool isAwake READ isAwake NOTIFY isAwakeChanged)
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY isPausedChanged)
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    Q_PROPERTY(QString statusReason READ statusReason NOTIFY statusReasonChanged)
    Q_PROPERTY(QString statusSubtitle READ statusSubtitle NOTIFY statusSubtitleChanged)
    Q_PROPERTY(QString statusDetails READ statusDetails NOTIFY statusDetailsChanged)
    Q_PROPERTY(bool isTimedSessionActive READ isTimedSessionActive NOTIFY isTimedSessionActiveChanged)
    Q_PROPERTY(double timedSessionEnd READ timedSessionEnd NOTIFY timedSessionEndChanged)
    // clang-format on

public:
    explicit CoordinatorMirror(const QDBusConnection& bus);

    bool isAwake() const { return value("isAwake").toBool(); }
    bool isPaused() const { return value("isPaused").toBool(); }
    QString title() const { return value("title").toString(); }
    QString statusReason() const { return value("statusReason").toString(); }
    QString statusSubtitle() const { return value("statusSubtitle").toString(); }
    QString statusDetails() const { return value("statusDetails").toString(); }
    bool isTimedSessionActive() const { return value("isTimedSessionActive").toBool(); }
    double timedSessionEnd() const { return value("timedSessionEnd").toDouble(); }

    /// Starts a timed session in place of a running one; 0 ends it.
    Q_INVOKABLE void setTimedSession(int minutes);
    Q_INVOKABLE void lockScreen();
    /// Ends Tarvik, not this process.
    Q_INVOKABLE void quit();

Q_SIGNALS:
    void isAwakeChanged();
    void isPausedChanged();
    void titleChanged();
    void statusReasonChanged();
    void statusSubtitleChanged();
    void statusDetailsChanged();
    void isTimedSessionActiveChanged();
    void timedSessionEndChanged();
};

} // namespace Tarvik
