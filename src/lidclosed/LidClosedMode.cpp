// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/LidClosedMode.h"

#include "core/AppSettings.h"
#include "platform/SleepControl.h"

#include <QCoreApplication>

#include <utility>

namespace Tarvik {

LidClosedMode::LidClosedMode(
    AppSettings& settings, SettingsStore& store, const Services& services, const QString& build, Actions actions)
    : m_settings(settings)
    , m_sleepControl(services.sleepControl)
    , m_clock(services.clock)
    , m_actions(std::move(actions))
    , m_manager(services.helper, services.clock)
    , m_helper(m_manager, store, build)
    , m_heartbeat(m_manager, services.clock)
    , m_administrator(services.sleepControl)
    , m_screen(services.display, services.lid, services.clock)
    , m_onboarding(store, m_actions.showOnboarding)
{
    connect(&m_manager, &HelperManager::lost, this, &LidClosedMode::noticeHelperLoss);
    connect(&m_heartbeat, &Heartbeat::late, this, [this] {
        m_isInDoubt = true;
        Q_EMIT evaluationNeeded();
    });
    connect(&m_helper, &BackgroundHelper::changed, this, &LidClosedMode::helperChanged);
    connect(&m_helper, &BackgroundHelper::evaluationNeeded, this, &LidClosedMode::evaluationNeeded);
    connect(&m_helper, &BackgroundHelper::restartNeeded, this, [this] { m_actions.showRestartAlert(); });
    connect(&m_helper, &BackgroundHelper::approvalNeeded, this, [this] { m_actions.showLoginItems(); });
    connect(&m_administrator, &AdministratorOverride::changed, this, [this] {
        if (!m_administrator.isHeld())
            noticeLoss();
        publishActive();
    });
}

LidClosedMode::~LidClosedMode()
{
    restoreClamshell();
}

void LidClosedMode::update(const Situation& situation)
{
    m_hasLid = situation.hasLid;
    const bool isPossible = m_hasLid == true && m_helper.isKnown();
    const bool isWanted = isPossible && situation.awake && situation.clamshellEnabled;
    if (isWanted)
        offerOnboarding();
    setClamshellActive(isWanted, situation.mayAskAgain);
}

void LidClosedMode::offerOnboarding()
{
    if (m_hasLid == true && m_helper.isKnown() && !m_helper.isUsable())
        m_onboarding.offer();
}

void LidClosedMode::setClamshellEnabled(bool on)
{
    if (on)
        offerOnboarding();
    m_settings.setClamshellEnabled(on);
}

void LidClosedMode::setClamshellActive(bool wanted, bool mayAskAgain)
{
    m_isWanted = wanted;
    if (!wanted) {
        const bool isGivenBack = m_administrator.isHeld();
        m_administrator.giveBack();
        if (m_isHelperOn)
            switchHelper(false);
        else if (isGivenBack)
            m_sleepControl.sleepForClosedLid();
        publishActive();
    } else if ((!m_clamshellActive || m_isInDoubt) && !m_helper.isChanging()) {
        if (m_helper.isUsable())
            switchHelper(true);
        else
            m_administrator.take(mayAskAgain);
    }
}

void LidClosedMode::switchHelper(bool on)
{
    m_manager.setKeepAwake(on, [this, on](bool ok, const QString& error) { finishSwitch(on, ok, error); });
}

void LidClosedMode::finishSwitch(bool on, bool ok, const QString& error)
{
    if (!ok) {
        m_helper.setLastError(error.isEmpty()
                ? QCoreApplication::translate("LidClosedMode", "The background helper didn’t respond.")
                : error);
        // Nothing may happen for hours in which another attempt would be made; and the answer may only be late.
        m_isInDoubt = m_isInDoubt || !on;
        m_retry = m_clock.after(on ? Heartbeat::period : retryPause, [this] { Q_EMIT evaluationNeeded(); });
        return;
    }
    m_isInDoubt = false;
    m_retry.reset();
    m_helper.setLastError({});
    const bool wasOn = std::exchange(m_isHelperOn, on);
    if (on) {
        // The prompt for a password may still be open, from before the helper was there.
        m_administrator.giveBack();
        m_heartbeat.start();
    } else {
        m_heartbeat.stop();
        if (wasOn)
            m_sleepControl.sleepForClosedLid();
    }
    publishActive();
    // The wish may have changed while the helper was at it.
    if (on != m_isWanted)
        setClamshellActive(m_isWanted, false);
}

void LidClosedMode::noticeHelperLoss()
{
    m_heartbeat.stop();
    m_isInDoubt = false;
    if (std::exchange(m_isHelperOn, false))
        noticeLoss();
    publishActive();
}

void LidClosedMode::noticeLoss()
{
    // Should nobody take the override again at once, the machine must not stay awake with its lid closed.
    m_sleepControl.sleepForClosedLid();
}

void LidClosedMode::publishActive()
{
    const bool isActive = m_isHelperOn || m_administrator.isHeld();
    if (std::exchange(m_clamshellActive, isActive) == isActive)
        return;
    Q_EMIT clamshellActiveChanged();
    Q_EMIT evaluationNeeded();
}

void LidClosedMode::restoreClamshell()
{
    m_isWanted = false;
    m_heartbeat.stop();
    const bool wasActive = m_clamshellActive;
    m_administrator.giveBack();
    // Nobody waits for the answer: should it not arrive, the helper notices that its caller is gone.
    if (std::exchange(m_isHelperOn, false))
        m_manager.setKeepAwake(false, [](bool, const QString&) {});
    if (wasActive)
        m_sleepControl.sleepForClosedLid();
    publishActive();
}

void LidClosedMode::relaunch()
{
    m_relaunchDelay = m_clock.after(relaunchDelay, [this] { m_actions.relaunch(); });
}

} // namespace Tarvik
