// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "lidclosed/AdministratorOverride.h"
#include "lidclosed/BackgroundHelper.h"
#include "lidclosed/Heartbeat.h"
#include "lidclosed/HelperManager.h"
#include "lidclosed/Onboarding.h"
#include "lidclosed/ScreenBlank.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

class AppSettings;

/// Keeps the machine running while its lid is closed: switches its sleep off, through the background helper where that
/// is installed and else with an administrator's rights, and the displays when the lid closes.
class LidClosedMode : public QObject {
    Q_OBJECT

public:
    /// What the desktop does for the mode.
    struct Services {
        HelperService& helper;
        SleepControl& sleepControl;
        DisplayPower& display;
        LidSensor& lid;
        Clock& clock;
    };

    /// What the application does for the mode. Each shows a window at once, but for the last one.
    struct Actions {
        std::function<void()> showOnboarding;
        /// "Background helper enabled".
        std::function<void()> showRestartAlert;
        /// How the user, or the administrator of the machine, allows the helper.
        std::function<void()> showLoginItems;
        /// Ends the application and starts it anew.
        std::function<void()> relaunch;
    };

    /// What decides whether sleep is switched off.
    struct Situation {
        /// The machine is kept awake.
        bool awake = false;
        /// The user wants this mode.
        bool clamshellEnabled = false;
        /// Nothing while it is not known.
        std::optional<bool> hasLid;
        /// Something has happened for which the user, who has refused to give a password, may be asked again.
        bool mayAskAgain = false;
    };

    /// From `relaunch()` to the end, in which its caller gets an answer.
    static constexpr Seconds relaunchDelay{0.3};
    /// After which a switch-off that has failed is tried again.
    static constexpr Seconds retryPause{5};

    /// `build` is CFBundleVersion. Everything passed in must outlive the object.
    LidClosedMode(
        AppSettings& settings, SettingsStore& store, const Services& services, const QString& build, Actions actions);
    /// Restores sleep.
    ~LidClosedMode() override;

    /// Sleep is switched off, as far as is known.
    bool clamshellActive() const { return m_clamshellActive; }
    bool helperInstalled() const { return m_helper.isInstalled(); }
    bool helperNeedsApproval() const { return m_helper.needsApproval(); }
    /// What the user should know of the helper, an error or a confirmation; empty when there is nothing.
    QString lastHelperError() const { return m_helper.lastError(); }

    /// Switches sleep off or on as the situation wants it, and introduces the mode to a user who does without the
    /// helper. Until it is known whether there is a lid and a helper, nothing is done.
    void update(const Situation& situation);

    /// To be called after the above, with the lid as it is since then.
    void updateScreenBlank(const ScreenBlank::Situation& situation) { m_screen.update(situation); }

    /// Stores the user's wish for the mode, which takes effect with the settings' change.
    void setClamshellEnabled(bool on);

    /// Switches sleep on again without waiting for anybody: the application ends.
    void restoreClamshell();

    void installHelper() { m_helper.install(); }
    void reinstallHelper() { m_helper.reinstall(); }
    void refreshHelperStatus() { m_helper.refreshStatus(); }
    void finishOnboarding() { m_onboarding.finish(); }

    /// Ends the application soon and starts it anew, which a new helper is only reliably reached by.
    void relaunch();

Q_SIGNALS:
    void clamshellActiveChanged();
    /// One of the helper's fields may have changed.
    void helperChanged();
    /// `update()` may have another outcome now.
    void evaluationNeeded();

private:
    void setClamshellActive(bool wanted, bool mayAskAgain);
    void switchHelper(bool on);
    void finishSwitch(bool on, bool ok, const QString& error);
    void noticeHelperLoss();
    void noticeLoss();
    void publishActive();
    void offerOnboarding();

    AppSettings& m_settings;
    SleepControl& m_sleepControl;
    Clock& m_clock;
    Actions m_actions;
    HelperManager m_manager;
    BackgroundHelper m_helper;
    Heartbeat m_heartbeat;
    AdministratorOverride m_administrator;
    ScreenBlank m_screen;
    Onboarding m_onboarding;
    std::optional<bool> m_hasLid;
    bool m_isWanted = false;
    /// The override is on through the helper.
    bool m_isHelperOn = false;
    /// What the helper does about it is not certain: the next wish is to be told to it in any case.
    bool m_isInDoubt = false;
    bool m_clamshellActive = false;
    std::unique_ptr<Timer> m_relaunchDelay;
    std::unique_ptr<Timer> m_retry;
};

} // namespace Tarvik
