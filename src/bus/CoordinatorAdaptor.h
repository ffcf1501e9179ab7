// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/PropertyAnnouncer.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

namespace Tarvik {

class AwakeCoordinator;

/// The coordinator on the session bus; com.morvanta.Tarvik.Coordinator1.xml is the contract.
class CoordinatorAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.morvanta.Tarvik.Coordinator1")
    // clang-format off
    Q_PROPERTY(bool isAwake READ isAwake)
    Q_PROPERTY(bool isPaused READ isPaused)
    Q_PROPERTY(QString title READ title)
    Q_PROPERTY(QString statusReason READ statusReason)
    Q_PROPERTY(QString statusSubtitle READ statusSubtitle)
    Q_PROPERTY(QString statusDetails READ statusDetails)
    Q_PROPERTY(bool isTimedSessionActive READ isTimedSessionActive)
    Q_PROPERTY(double timedSessionEnd READ timedSessionEnd)
    // clang-format on

public:
    /// `object` is what is registered on the bus and owns the adaptor; `coordinator` must outlive it.
    CoordinatorAdaptor(QObject& object, AwakeCoordinator& coordinator, const QDBusConnection& bus);

    bool isAwake() const;
    bool isPaused() const;
    QString title() const;
    QString statusReason() const;
    QString statusSubtitle() const;
    QString statusDetails() const;
    bool isTimedSessionActive() const;
    double timedSessionEnd() const;

    std::function<void()> onLockScreen;
    std::function<void()> onQuit;

public Q_SLOTS:
    void SetTimedSession(int minutes, const QDBusMessage& call);
    void LockScreen();
    void Quit();

private:
    AwakeCoordinator& m_coordinator;
    QDBusConnection m_bus;
    PropertyAnnouncer m_announcer;
};

} // namespace Tarvik
