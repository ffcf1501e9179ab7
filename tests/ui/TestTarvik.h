// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/ServedTarvik.h"
#include "bus/WindowRequest.h"
#include "core/HookSpec.h"
#include "engine/SteeredMachine.h"
#include "support/TestSupport.h"
#include "ui/mirror/ApplicationChoice.h"
#include "ui/mirror/HooksMirror.h"
#include "ui/mirror/JournalMirror.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/MirrorTestSupport.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"
#include "ui/mirror/UpdaterMirror.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace Tarvik {

/// Tarvik and what the windows see of it, as a QML test uses both. What is done to Tarvik has reached the windows when
/// the call is over; what is done in the windows reaches Tarvik later.
class TestTarvik : public QObject {
    Q_OBJECT
    Q_PROPERTY(Tarvik::StatusMirror* status READ status CONSTANT)
    Q_PROPERTY(Tarvik::SettingsMirror* settings READ settings CONSTANT)
    Q_PROPERTY(Tarvik::LidClosedMirror* lidClosed READ lidClosed CONSTANT)
    Q_PROPERTY(Tarvik::JournalMirror* journal READ journal CONSTANT)
    Q_PROPERTY(Tarvik::HooksMirror* hooks READ hooks CONSTANT)
    Q_PROPERTY(Tarvik::UpdaterMirror* updater READ updater CONSTANT)
    Q_PROPERTY(Tarvik::ApplicationChoice* applications READ applications CONSTANT)

public:
    StatusMirror* status() { return &m_status; }
    SettingsMirror* settings() { return &m_settings; }
    LidClosedMirror* lidClosed() { return &m_lidClosed; }
    JournalMirror* journal() { return &m_journal; }
    HooksMirror* hooks() { return &m_hooks; }
    UpdaterMirror* updater() { return &m_updater; }
    ApplicationChoice* applications() { return &m_applications; }

    /// The desktop's applications, by their ids, and with the names that follow them.
    Q_INVOKABLE void installApplications(const QVariantMap& namesById)
    {
        m_installed.clear();
        for (auto each = namesById.begin(); each != namesById.end(); ++each)
            m_installed.append({each.key(), each->toString(), {}});
    }

    /// A Tarvik of which nobody has changed anything yet, on a computer with a lid and without a helper.
    Q_INVOKABLE void restart()
    {
        m_served.reset();
        waitFor([this] { return std::ranges::none_of(m_mirrors, &PropertyMirror::isConnected); });
        m_served.emplace();
        m_steering.emplace(machine());
        play(QStringLiteral("helper missing"));
        waitFor([this] { return std::ranges::all_of(m_mirrors, &PropertyMirror::isConnected); });
        arrive();
        m_asked.clear();
        m_served->object->onMessage = [this](const QDBusMessage& message) {
            const QString request = windowRequest(message);
            if (!request.isEmpty())
                m_asked.append(request);
        };
    }

    /// The machine goes through a line of tests/engine/traces/README.md.
    Q_INVOKABLE void play(const QString& line)
    {
        if (!m_steering->play(line))
            qFatal("Nothing goes through this: %s", qUtf8Printable(line));
        arrive();
    }

    /// What the setting is, whatever the windows show.
    Q_INVOKABLE QVariant setting(const QString& name) const
    {
        return machine().settings->property(name.toLatin1().constData());
    }
    Q_INVOKABLE void set(const QString& name, const QVariant& value)
    {
        machine().settings->setProperty(name.toLatin1().constData(), value);
        arrive();
    }
    /// Applications by their names, which are their identifiers as well.
    Q_INVOKABLE void allow(const QStringList& names)
    {
        QList<AllowlistedApp> apps;
        for (const QString& name : names)
            apps.append({name, name});
        machine().settings->setAllowlist(apps);
        arrive();
    }
    Q_INVOKABLE QStringList allowed() const
    {
        QStringList names;
        for (const AllowlistedApp& app : machine().settings->allowlist())
            names.append(app.name);
        return names;
    }

    /// These processes and allowed applications, by their names, are all that run.
    Q_INVOKABLE void run(const QStringList& processes, const QStringList& applications = {})
    {
        QList<RunningApplication> running;
        for (const QString& name : applications)
            running.append({name, name});
        machine().applications.set(running);
        machine().run(processes.join(u'\n').toUtf8() + '\n');
        arrive();
    }
    /// Without `percent` there is no battery.
    Q_INVOKABLE void setPower(bool isOnAC, const QVariant& percent = {})
    {
        machine().setPower(isOnAC, percent.isValid() ? std::optional(percent.toInt()) : std::nullopt);
        arrive();
    }
    /// From 0 to 3.
    Q_INVOKABLE void setThermal(int level)
    {
        machine().setThermal(static_cast<ThermalLevel>(level));
        arrive();
    }
    Q_INVOKABLE void setTimedSession(int minutes)
    {
        machine().coordinator->setTimedSession(minutes > 0 ? std::optional(minutes) : std::nullopt);
        arrive();
    }

    /// `kind` is "on", "off", "paused" or "resumed".
    Q_INVOKABLE void record(const QString& kind, const QString& reason, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            machine().journal->record(journalKindFromName(kind).value(), reason);
        arrive();
    }
    Q_INVOKABLE QString journalText() const { return machine().journal->exportText(); }
    /// What follows happens at `date`.
    Q_INVOKABLE void setClock(const QDateTime& date)
    {
        const TimePoint time{Seconds(static_cast<double>(date.toMSecsSinceEpoch()) / 1000)};
        machine().clock.setBack(machine().clock.now() - time);
    }

    /// As the agents' own files have it.
    Q_INVOKABLE QStringList installedHooks()
    {
        QStringList ids;
        for (const HookSpec& spec : HookSpec::all) {
            const QString id = QString::fromUtf8(spec.id.data(), static_cast<qsizetype>(spec.id.size()));
            if (machine().hookFiles.installedIds().contains(id))
                ids.append(id);
        }
        return ids;
    }
    /// The hook of an agent tells of the end of a turn.
    Q_INVOKABLE void sendHookEvent(const QString& id)
    {
        machine().hook({{QStringLiteral("action"), QStringLiteral("release")},
            {QStringLiteral("session"), QStringLiteral("any")},
            {QStringLiteral("tool"), id}});
        arrive();
    }
    /// By somebody else: the windows are not told.
    Q_INVOKABLE void editHooks(const QStringList& installed)
    {
        for (const HookSpec& spec : HookSpec::all) {
            const QString id = QString::fromUtf8(spec.id.data(), static_cast<qsizetype>(spec.id.size()));
            const bool isDone
                = installed.contains(id) ? machine().hookFiles.install(spec) : machine().hookFiles.uninstall(spec);
            if (!isDone)
                qFatal("The hooks of %s cannot be edited.", qUtf8Printable(id));
        }
    }
    /// Nothing can be installed for the agent; what says so is expected once.
    Q_INVOKABLE void breakHooks(const QString& id)
    {
        if (!QDir().mkpath(configPath(id)))
            qFatal("%s cannot be made.", qUtf8Printable(configPath(id)));
        expectLog(QtCriticalMsg, QStringLiteral("^could not write hook config for %1: Not a regular file$").arg(id));
    }
    Q_INVOKABLE void mendHooks(const QString& id) { QDir().rmdir(configPath(id)); }

    Q_INVOKABLE void offerUpdates()
    {
        m_served->updateDriver.becomeAvailable();
        arrive();
    }
    /// A channel by its name on the bus.
    Q_INVOKABLE void setUpdateChannel(const QString& name)
    {
        if (!m_served->updateDriver.become(name))
            qFatal("No updates come like this: %s", qUtf8Printable(name));
        arrive();
    }
    Q_INVOKABLE int updateChecks() const { return static_cast<int>(m_served->updateDriver.started.size()); }
    Q_INVOKABLE void finishUpdateCheck()
    {
        m_served->updateDriver.finish(true);
        arrive();
    }

    Q_INVOKABLE void installUpgrade()
    {
        m_served->installUpgrade();
        arrive();
    }

    /// How often the windows have asked why the computer is awake.
    Q_INVOKABLE int explanations() const { return m_served->locks.questions; }

    /// What the windows have wanted done, see windowRequest().
    Q_INVOKABLE QStringList asked() const { return m_asked; }
    /// What that has come to: what lid-closed mode has had the application show or do, what the system or the helper
    /// was asked for, and what is stored.
    Q_INVOKABLE QStringList shown() const { return machine().shown; }
    Q_INVOKABLE QStringList helperCalls() const { return machine().helper.calls; }
    Q_INVOKABLE QVariant stored(const QString& key) const { return machine().store.values.value(key); }

private:
    CoordinatedMachine& machine() { return m_served->machine; }
    const CoordinatedMachine& machine() const { return m_served->machine; }

    QString configPath(const QString& id) const
    {
        const std::string_view path = HookSpec::find(id.toStdString())->configPath;
        return machine().home.filePath(QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size())));
    }

    static void waitFor(const std::function<bool()>& condition)
    {
        if (!QTest::qWaitFor(condition, patience))
            qFatal("Tarvik has not arrived.");
    }

    void arrive() const { settle(m_bus); }

    QDBusConnection m_bus = mirrorConnection();
    StatusMirror m_status{m_bus};
    SettingsMirror m_settings{m_bus};
    LidClosedMirror m_lidClosed{m_bus};
    JournalMirror m_journal{m_bus};
    HooksMirror m_hooks{m_bus};
    UpdaterMirror m_updater{m_bus};
    QList<InstalledApplication> m_installed;
    ApplicationChoice m_applications{{.installed = [this] { return m_installed; },
                                         .ofFile = [](const QString& path) -> std::optional<InstalledApplication> {
                                             const QString id = QFileInfo(path).completeBaseName();
                                             return path.endsWith(u".desktop")
                                                 ? std::optional(InstalledApplication{id, id.toUpper(), {}})
                                                 : std::nullopt;
                                         }},
        m_settings,
        m_bus};
    std::array<PropertyMirror*, 6> m_mirrors{&m_status, &m_settings, &m_lidClosed, &m_journal, &m_hooks, &m_updater};
    std::optional<ServedTarvik> m_served;
    std::optional<SteeredMachine> m_steering;
    QStringList m_asked;
};

} // namespace Tarvik
