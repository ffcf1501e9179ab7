// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/CoordinatorAdaptor.h"

#include "bus/UiWire.h"
#include "engine/AwakeCoordinator.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

constexpr int longestSessionMinutes = 366 * 24 * 60;

} // namespace

CoordinatorAdaptor::CoordinatorAdaptor(QObject& object, AwakeCoordinator& coordinator, const QDBusConnection& bus)
    : QDBusAbstractAdaptor(&object)
    , m_coordinator(coordinator)
    , m_bus(bus)
    , m_announcer({.object = *this,
                      .metaObject = staticMetaObject,
                      .interface = QString::fromLatin1(UiWire::coordinatorInterface)},
          bus)
{
    connect(&coordinator, &AwakeCoordinator::evaluated, &m_announcer, &PropertyAnnouncer::announceSoon);
    connect(&coordinator, &AwakeCoordinator::timedSessionEndChanged, &m_announcer, &PropertyAnnouncer::announceSoon);
}

bool CoordinatorAdaptor::isAwake() const
{
    return m_coordinator.isAwake();
}

bool CoordinatorAdaptor::isPaused() const
{
    return m_coordinator.isPaused();
}

QString CoordinatorAdaptor::title() const
{
    return m_coordinator.title();
}

QString CoordinatorAdaptor::statusReason() const
{
    return m_coordinator.statusReason();
}

QString CoordinatorAdaptor::statusSubtitle() const
{
    return m_coordinator.statusSubtitle();
}

QString CoordinatorAdaptor::statusDetails() const
{
    return m_coordinator.statusDetails();
}

bool CoordinatorAdaptor::isTimedSessionActive() const
{
    return m_coordinator.isTimedSessionActive();
}

double CoordinatorAdaptor::timedSessionEnd() const
{
    const auto end = m_coordinator.timedSessionEnd();
    return end ? end->time_since_epoch().count() : 0;
}

void CoordinatorAdaptor::SetTimedSession(int minutes, const QDBusMessage& call)
{
    if (minutes > longestSessionMinutes) {
        call.setDelayedReply(true);
        m_bus.send(call.createErrorReply(QDBusError::InvalidArgs, u"A timed session lasts a year at most."_s));
        return;
    }
    m_coordinator.setTimedSession(minutes > 0 ? std::optional(minutes) : std::nullopt);
}

void CoordinatorAdaptor::LockScreen()
{
    if (onLockScreen)
        onLockScreen();
}

void CoordinatorAdaptor::Quit()
{
    if (onQuit)
        onQuit();
}

} // namespace Tarvik
