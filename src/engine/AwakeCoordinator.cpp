// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/AwakeCoordinator.h"

#include "core/AppSettings.h"
#include "core/Logging.h"
#include "engine/LaunchAtLogin.h"
#include "engine/StatusText.h"
#include "hooks/HookFiles.h"
#include "hooks/HookMonitor.h"
#include "hotkey/LockScreen.h"
#include "journal/Journal.h"
#include "lidclosed/LidClosedMode.h"
#include "monitors/PowerMonitor.h"
#include "monitors/ProcessMonitor.h"
#include "monitors/ThermalMonitor.h"

#include <QCoreApplication>
#include <QPointer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

AwakeCoordinator::AwakeCoordinator(const Parts& parts, const Services& services, const HookFiles& hookFiles)
    : m_parts(parts)
    , m_assertions(services.assertions)
    , m_screenLock(services.screenLock)
    , m_clock(services.clock)
    , m_notifications(services.notifications)
    , m_transitions(parts.settings, parts.journal, m_notifications)
{
    mirrorLaunchAtLogin(services.loginItem, m_parts.settings);
    m_loginItemChanges = followLaunchAtLogin(services.loginItem, m_parts.settings);
    listen();
    m_lockHotKey.emplace(
        services.hotKeys,
        LockShortcut::keyCode,
        LockShortcut::modifiers,
        [this] { lockScreen(); },
        LockShortcut::purpose());
    requestPermission(m_parts.settings.notifyOnPause() || m_parts.settings.notifyOnToggle());
    hookFiles.refreshOutdated();
    evaluate();
}

AwakeCoordinator::~AwakeCoordinator()
{
    m_parts.lidClosed.restoreClamshell();
    m_parts.power.onChange = nullptr;
    m_parts.process.onChange = nullptr;
    m_parts.thermal.onChange = nullptr;
    m_parts.hooks.onChange = nullptr;
}

void AwakeCoordinator::listen()
{
    m_failures = m_assertions.failed.subscribe([](PowerAssertionType type, int code) {
        qCCritical(logCoordinator, "Assertion %s failed: %d", qUtf8Printable(powerAssertionTypeName(type)), code);
    });
    m_parts.power.onChange = [this] {
        checkPowerEdge();
        // Somebody's hand moves the lid.
        evaluate(m_parts.power.lidClosed() == m_wasLidClosed ? Cause::reading : Cause::event);
    };
    m_parts.process.onChange = [this] { evaluate(); };
    m_parts.thermal.onChange = [this] { evaluate(Cause::reading); };
    m_parts.hooks.onChange = [this] { evaluate(); };
    LidClosedMode& lidClosed = m_parts.lidClosed;
    connect(&lidClosed, &LidClosedMode::clamshellActiveChanged, this, &AwakeCoordinator::clamshellActiveChanged);
    connect(&lidClosed, &LidClosedMode::helperChanged, this, &AwakeCoordinator::helperChanged);
    connect(&lidClosed, &LidClosedMode::evaluationNeeded, this, [this] { evaluateSoon(Cause::reading); });
    AppSettings& settings = m_parts.settings;
    connect(&settings, &AppSettings::changed, this, [this] { evaluateSoon(Cause::event); });
    // Whoever switches notifications on is to be asked then, not at the next start.
    connect(&settings, &AppSettings::notifyOnToggleChanged, this, [this] {
        requestPermission(m_parts.settings.notifyOnToggle());
    });
    connect(&settings, &AppSettings::notifyOnPauseChanged, this, [this] {
        requestPermission(m_parts.settings.notifyOnPause());
    });
    // The edge is measured from the state at start, so that starting on AC power is not plugging in.
    m_wasOnAC = m_parts.power.isOnAC();
}

void AwakeCoordinator::requestPermission(bool isWanted)
{
    if (isWanted)
        m_notifications.requestAuthorization();
}

void AwakeCoordinator::lockScreen()
{
    // It may take the desktop seconds to give up.
    Tarvik::lockScreen(m_screenLock, [self = QPointer(this)](const QString& title, const QString& body) {
        if (self)
            self->m_notifications.post(title, body);
    });
}

void AwakeCoordinator::evaluateSoon(Cause cause)
{
    const bool isScheduled = m_scheduledCause.has_value();
    m_scheduledCause = std::max(cause, m_scheduledCause.value_or(cause));
    if (isScheduled)
        return;
    QMetaObject::invokeMethod(
        this, [this] { evaluate(*std::exchange(m_scheduledCause, std::nullopt)); }, Qt::QueuedConnection);
}

void AwakeCoordinator::checkPowerEdge()
{
    const bool isOnAC = m_parts.power.isOnAC();
    const bool wasJustConnected = isOnAC && !m_wasOnAC.value_or(isOnAC);
    m_wasOnAC = isOnAC;
    AppSettings& settings = m_parts.settings;
    if (!wasJustConnected || !m_parts.power.hasBattery() || !settings.enableOnAC() || settings.isEnabled())
        return;
    settings.setIsEnabled(true);
    m_parts.journal.record(
        Journal::Entry::Kind::on, QCoreApplication::translate("Journal", "Switched on — plugged in"));
}

bool AwakeCoordinator::isTimedSessionActive() const
{
    return m_timedSessionEnd && *m_timedSessionEnd > m_clock.now();
}

bool AwakeCoordinator::clamshellActive() const
{
    return m_parts.lidClosed.clamshellActive();
}

bool AwakeCoordinator::helperInstalled() const
{
    return m_parts.lidClosed.helperInstalled();
}

bool AwakeCoordinator::helperNeedsApproval() const
{
    return m_parts.lidClosed.helperNeedsApproval();
}

QString AwakeCoordinator::lastHelperError() const
{
    return m_parts.lidClosed.lastHelperError();
}

QStringList AwakeCoordinator::activeList() const
{
    return m_parts.hooks.activeAgents() + m_parts.process.activeLabels();
}

AwakeRules::Inputs AwakeCoordinator::inputs(const QStringList& activeList) const
{
    const AppSettings& settings = m_parts.settings;
    return {
        .isEnabled = settings.isEnabled(),
        .timedSessionActive = isTimedSessionActive(),
        .activeList = activeList,
        .isHot = m_parts.thermal.isHot(),
        .pauseWhenHot = settings.pauseWhenHot(),
        .requireAC = settings.requireAC(),
        .batteryLimitEnabled = settings.batteryLimitEnabled(),
        .batteryThreshold = settings.batteryThreshold(),
        .hasBattery = m_parts.power.hasBattery(),
        .isOnAC = m_parts.power.isOnAC(),
        .batteryPercent = m_parts.power.batteryPercent(),
    };
}

void AwakeCoordinator::evaluate(Cause cause)
{
    // Switched off, nothing is looked at and nothing is told of what is running.
    const QStringList active = m_parts.settings.isEnabled() ? activeList() : QStringList();
    const AwakeRules::Decision decision = AwakeRules::decide(inputs(active));
    updateAssertions(decision.awake);
    updateLidClosedMode(decision.awake, cause);
    publish(describe(decision, active));
    m_transitions.record(decision, m_status.reason);
    Q_EMIT evaluated();
}

void AwakeCoordinator::updateAssertions(bool awake)
{
    const AppSettings& settings = m_parts.settings;
    hold(m_systemAssertion, PowerAssertionType::preventUserIdleSystemSleep, awake);
    const bool isScreenWanted
        = settings.keepDisplayAwake() && !(m_parts.power.lidClosed() && settings.screenOffOnLidClose());
    hold(m_displayAssertion, PowerAssertionType::preventUserIdleDisplaySleep, awake && isScreenWanted);
}

void AwakeCoordinator::updateLidClosedMode(bool awake, Cause cause)
{
    const AppSettings& settings = m_parts.settings;
    PowerMonitor& power = m_parts.power;
    m_parts.lidClosed.update({.awake = awake,
        .clamshellEnabled = settings.clamshellEnabled(),
        .hasLid = power.hasLid(),
        .mayAskAgain = cause == Cause::event});
    power.setLidPolling(awake);
    m_wasLidClosed = power.lidClosed();
    m_parts.lidClosed.updateScreenBlank(
        {.awake = awake, .lidClosed = power.lidClosed(), .screenOffOnLidClose = settings.screenOffOnLidClose()});
}

void AwakeCoordinator::hold(std::unique_ptr<PowerAssertion>& assertion, PowerAssertionType type, bool wanted)
{
    const bool isHeld = assertion && !assertion->failure();
    if (!wanted)
        assertion.reset();
    else if (!isHeld)
        assertion = m_assertions.create(type, u"Tarvik"_s);
}

AwakeCoordinator::Status AwakeCoordinator::describe(
    const AwakeRules::Decision& decision, const QStringList& activeList) const
{
    const bool isEnabled = m_parts.settings.isEnabled();
    const bool isPaused = !isEnabled || decision.reason;
    const PowerMonitor& power = m_parts.power;
    const auto minutesLeft = StatusText::minutesLeft(m_timedSessionEnd, m_clock.now());
    const QString reason = StatusText::reason({
        .awake = decision.awake,
        .reason = decision.reason,
        .timedSessionActive = isTimedSessionActive(),
        .minutesLeft = minutesLeft,
        .agentCount = m_parts.process.activeAgentLabels().size(),
        .appCount = m_parts.process.activeAppLabels().size(),
    });
    return {
        .isAwake = decision.awake,
        .isPaused = isPaused,
        .title = StatusText::title({.isEnabled = isEnabled, .isPaused = isPaused, .isAwake = decision.awake}),
        .reason = isEnabled ? reason : QCoreApplication::translate("StatusText", "Off"),
        .subtitle = StatusText::subtitle({
            .isEnabled = isEnabled,
            .reason = decision.reason,
            .activeList = activeList,
            .timedSessionActive = isTimedSessionActive(),
        }),
        .details = StatusText::details({
            .reason = decision.reason,
            .hasBattery = power.hasBattery(),
            .isOnAC = power.isOnAC(),
            .batteryPercent = power.batteryPercent(),
            .isHot = m_parts.thermal.isHot(),
            .thermalState = static_cast<int>(m_parts.thermal.state()),
            .lidClosedMode = clamshellActive() && power.lidClosed(),
            .minutesLeft = minutesLeft,
        }),
    };
}

void AwakeCoordinator::publish(const Status& status)
{
    const Status old = std::exchange(m_status, status);
    if (old.isAwake != status.isAwake)
        Q_EMIT isAwakeChanged();
    if (old.isPaused != status.isPaused)
        Q_EMIT isPausedChanged();
    if (old.title != status.title)
        Q_EMIT titleChanged();
    if (old.reason != status.reason)
        Q_EMIT statusReasonChanged();
    if (old.subtitle != status.subtitle)
        Q_EMIT statusSubtitleChanged();
    if (old.details != status.details)
        Q_EMIT statusDetailsChanged();
}

void AwakeCoordinator::setTimedSession(std::optional<int> minutes)
{
    changeTimedSession(minutes, Cause::event);
}

void AwakeCoordinator::changeTimedSession(std::optional<int> minutes, Cause cause)
{
    m_sessionTimer.reset();
    m_minuteTimer.reset();
    if (!minutes) {
        setTimedSessionEnd({});
    } else {
        const Seconds length = std::chrono::minutes(*minutes);
        setTimedSessionEnd(m_clock.now() + length);
        m_sessionTimer = m_clock.after(length, [this] { changeTimedSession({}, Cause::reading); });
        // Nothing else may happen for hours, and the texts tell the minutes that are left.
        m_minuteTimer = m_clock.every(std::chrono::minutes(1), [this] { evaluate(Cause::reading); });
    }
    evaluate(cause);
}

void AwakeCoordinator::setTimedSessionEnd(std::optional<TimePoint> end)
{
    m_timedSessionEnd = end;
    Q_EMIT timedSessionEndChanged();
}

} // namespace Tarvik
