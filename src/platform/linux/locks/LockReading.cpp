// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/LockReading.h"

#include "dbus/BusDaemon.h"
#include "dbus/BusNames.h"
#include "dbus/DBusProperties.h"
#include "platform/linux/inhibitors/LidDaemons.h"
#include "platform/linux/inhibitors/ServiceLabels.h"
#include "platform/linux/inhibitors/SystemdVersion.h"
#include "platform/linux/locks/PowerManagerLocks.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

QStringList sessionNames()
{
    return LidDaemons::names()
        + QStringList{BusNames::sessionManager,
            BusNames::lxqtPowerManager,
            BusNames::gnomePowerManager,
            BusNames::powerManagement,
            BusNames::screenSaver};
}

bool isTrue(const QDBusMessage& answer)
{
    return answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0) == true;
}

} // namespace

LockReading::LockReading(const QDBusConnection& systemBus,
    const QDBusConnection& sessionBus,
    Desktop desktop,
    Clock& clock,
    std::function<void(const LockAnswers& answers)> done)
    : m_desktop(std::move(desktop))
    , m_done(std::move(done))
    , m_round(
          {systemBus, {BusNames::logind}}, {sessionBus, sessionNames()}, clock, [this] { ask(); }, [this] { finish(); })
{
}

void LockReading::ask()
{
    m_answers.hasLogind = m_round.isThere(BusNames::logind);
    m_answers.hasSessionManager = m_round.isThere(BusNames::sessionManager);
    m_answers.facts.kde = m_round.isThere(BusNames::kdePowerManager);
    const auto isThere = [this](const QString& name) { return m_round.isThere(name); };
    m_answers.facts.hasLidDaemon = std::ranges::any_of(LidDaemons::names(), isThere);
    m_answers.facts.ownUser = getuid();
    m_answers.silentServices = silentServices();
    if (m_answers.hasLogind)
        askLogind();
    askForProcesses();
    if (m_answers.hasSessionManager)
        askSessionManager();
    if (m_answers.facts.kde)
        askPowerDevil();
    else if (m_round.isThere(BusNames::powerManagement))
        askPowerManagement();
}

void LockReading::askLogind()
{
    const QStringList own = m_desktop.processes();
    m_answers.facts.idleDaemonHeedsLogind = own.contains("swayidle"_L1) || own.contains("hypridle"_L1);
    m_round.askSystem(LogindInhibitors::list(),
        [this](const QDBusMessage& answer) { m_answers.logind = LogindInhibitors::listIn(answer); });
    const auto idleAction = DBusProperties::get(
        BusNames::logind, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"IdleAction"_s);
    m_round.askSystem(idleAction, [this](const QDBusMessage& answer) {
        const auto action = DBusProperties::exactly<QString>(DBusProperties::propertyIn(answer));
        m_answers.facts.logindSleepsOnIdle = action && *action != "ignore"_L1 && *action != "lock"_L1;
    });
    m_round.askSystem(SystemdVersion::question(),
        [this](const QDBusMessage& answer) { m_answers.facts.systemdVersion = SystemdVersion::in(answer); });
}

void LockReading::askForProcesses()
{
    askForProcess(BusNames::sessionManager, [this](qint64 process) { m_answers.sessionManagerProcess = process; });
    // The lid is not LXQt's session's own business.
    const QStringList lidDaemons = LidDaemons::names() + QStringList{BusNames::lxqtPowerManager};
    for (const QString& name : lidDaemons)
        askForProcess(name, [this](qint64 process) { m_answers.lidDaemonProcesses.append(process); });
}

void LockReading::askForProcess(const QString& name, std::function<void(qint64 process)> take)
{
    const QString owner = m_round.sessionOwner(name);
    if (owner.isEmpty())
        return;
    m_round.askSession(BusDaemon::call(u"GetConnectionUnixProcessID"_s, {owner}),
        [take = std::move(take)](const QDBusMessage& answer) {
            if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "u"_L1)
                take(answer.arguments().constFirst().toUInt());
        });
}

void LockReading::askSessionManager()
{
    const auto send
        = [this](const QDBusMessage& call, ServiceRound::Take take) { m_round.askSession(call, std::move(take)); };
    m_sessionManager.emplace(
        send, [this](const std::optional<QList<ListedLock>>& locks) { m_answers.sessionManager = locks; });
    m_sessionManager->ask();
}

void LockReading::askPowerDevil()
{
    using enum PowerManagerLocks::Policy;
    m_answers.hasPowerManager = true;
    m_answers.powerManagerLabel = ServiceLabels::kdePowerManagement;
    m_round.askSession(PowerManagerLocks::hasInhibition(interruptSession),
        [this](const QDBusMessage& answer) { m_keepsSessionUp = isTrue(answer); });
    m_round.askSession(PowerManagerLocks::hasInhibition(changeScreenSettings),
        [this](const QDBusMessage& answer) { m_keepsDisplayOn = isTrue(answer); });
    // The answers of one program come in the order of the questions.
    m_round.askSession(PowerManagerLocks::listOfPowerDevil(), [this](const QDBusMessage& list) {
        m_answers.powerManager = PowerManagerLocks::locksOfPowerDevil(list, m_keepsSessionUp, m_keepsDisplayOn);
    });
}

void LockReading::askPowerManagement()
{
    m_answers.hasPowerManager = true;
    m_answers.powerManagerLabel = m_round.isThere(BusNames::xfcePowerManager) ? ServiceLabels::xfcePowerManagement
                                                                              : ServiceLabels::powerManagement;
    m_round.askSession(PowerManagerLocks::listOfPowerManagement(), [this](const QDBusMessage& answer) {
        m_answers.powerManager = PowerManagerLocks::locksOfPowerManagement(answer);
    });
}

QStringList LockReading::silentServices() const
{
    QStringList silent;
    // Where it stands for the session manager or PowerDevil, those list what it holds.
    const bool isProxy = m_round.isThere(BusNames::gnomePowerManager) || m_round.isThere(BusNames::cinnamonPowerManager)
        || m_round.isThere(BusNames::kdePowerManager);
    if (m_round.isThere(BusNames::screenSaver) && !isProxy)
        silent.append(ServiceLabels::screenSaver);
    // Windows ask it directly. GNOME's hands that on to the session manager.
    if (m_desktop.isWayland && !m_round.isThere(BusNames::gnomePowerManager))
        silent.append(ServiceLabels::waylandCompositor);
    return silent;
}

void LockReading::finish()
{
    // It may destroy this.
    const auto done = m_done;
    const LockAnswers answers = m_answers;
    done(answers);
}

} // namespace Tarvik
