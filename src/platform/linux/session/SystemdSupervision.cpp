// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/SystemdSupervision.h"

#include "core/Logging.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

UnitProperty property(const QString& name, const QVariant& value)
{
    return {name, QDBusVariant(value)};
}

QVariant microseconds(Seconds interval)
{
    const auto count = std::chrono::duration_cast<std::chrono::microseconds>(interval).count();
    return QVariant::fromValue(static_cast<quint64>(count));
}

} // namespace

SystemdSupervision::SystemdSupervision(
    QDBusConnection sessionBus, Clock& clock, QString applicationId, SupervisedProgram program)
    : m_bus(std::move(sessionBus))
    , m_clock(clock)
    , m_applicationId(std::move(applicationId))
    , m_program(std::move(program))
{
}

void SystemdSupervision::handOver(std::function<void(bool isHandedOver)> decided)
{
    m_decided = std::move(decided);
    if (!m_bus.isConnected() || m_program.isInForeground
        || SupervisedProgram::isUnitOf(m_applicationId, m_program.cgroup)) {
        decide(false);
        return;
    }
    m_names.emplace(m_bus, QStringList{m_applicationId, TransientUnit::managerName});
    m_names->onKnown = [this] {
        if (m_names->isOwned(m_applicationId) || !m_names->isOwned(TransientUnit::managerName))
            decide(false);
        else
            startUnit();
    };
    m_names->onOwnerChange = [this](const QString&) {
        if (m_names->isOwned(m_applicationId))
            decide(true);
    };
}

void SystemdSupervision::startUnit()
{
    m_deadline = m_clock.after(patience, [this] {
        qCWarning(logSystem, "systemd did not start the application within %g seconds", patience.count());
        decide(false);
    });
    const QString name = SupervisedProgram::unitName(m_applicationId, m_program.processId);
    m_start = callAsync(m_bus, TransientUnit::start(name, unitProperties()), [this](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage)
            return;
        qCWarning(logSystem,
            "nobody starts the application again should it crash: %s",
            qUtf8Printable(answer.errorMessage()));
        decide(false);
    });
}

QList<UnitProperty> SystemdSupervision::unitProperties() const
{
    const UnitCommand command{.path = m_program.path, .arguments = QStringList{m_program.path} + m_program.arguments};
    return {
        property(u"Description"_s, u"Tarvik"_s),
        property(u"Type"_s, u"exec"_s),
        property(u"ExecStart"_s, QVariant::fromValue(QList<UnitCommand>{command})),
        property(u"Environment"_s, SupervisedProgram::passedOn(m_program.environment)),
        property(u"UnsetEnvironment"_s, SupervisedProgram::missing(m_program.environment)),
        property(u"Slice"_s, u"app.slice"_s),
        property(u"PartOf"_s, QStringList{u"graphical-session.target"_s}),
        property(u"Restart"_s, u"on-failure"_s),
        property(u"RestartUSec"_s, microseconds(restartDelay)),
        property(u"StartLimitIntervalUSec"_s, microseconds(startLimitInterval)),
        property(u"StartLimitBurst"_s, QVariant::fromValue(quint32{startLimit})),
        // A screen locker that was started from here must go on locking, and the windows end by themselves.
        property(u"KillMode"_s, u"process"_s),
        property(u"CollectMode"_s, u"inactive-or-failed"_s),
    };
}

void SystemdSupervision::decide(bool isHandedOver)
{
    if (!m_decided)
        return;
    m_start.reset();
    m_deadline.reset();
    QMetaObject::invokeMethod(
        &m_eventLoop,
        [decided = std::exchange(m_decided, {}), isHandedOver] { decided(isHandedOver); },
        Qt::QueuedConnection);
}

} // namespace Tarvik
