// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "core/AgentPreset.h"
#include "core/AllowlistedApp.h"

#include <QObject>

#include <vector>

namespace Tarvik {

class SettingsStore;

/// Every preference of the user. Each setter stores the value at once under the field's own name, also when it is the
/// one held already, and then notifies. What somebody else stores is taken over.
class AppSettings : public QObject {
    Q_OBJECT
    // clang-format off
    Q_PROPERTY(bool keepDisplayAwake READ keepDisplayAwake WRITE setKeepDisplayAwake NOTIFY keepDisplayAwakeChanged)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY launchAtLoginChanged)
    Q_PROPERTY(bool isEnabled READ isEnabled WRITE setIsEnabled NOTIFY isEnabledChanged)
    Q_PROPERTY(bool watchAgents READ watchAgents WRITE setWatchAgents NOTIFY watchAgentsChanged)
    Q_PROPERTY(bool watchEditors READ watchEditors WRITE setWatchEditors NOTIFY watchEditorsChanged)
    Q_PROPERTY(bool requireAC READ requireAC WRITE setRequireAC NOTIFY requireACChanged)
    Q_PROPERTY(bool batteryLimitEnabled READ batteryLimitEnabled WRITE setBatteryLimitEnabled NOTIFY batteryLimitEnabledChanged)
    Q_PROPERTY(int batteryThreshold READ batteryThreshold WRITE setBatteryThreshold NOTIFY batteryThresholdChanged)
    Q_PROPERTY(bool pauseWhenHot READ pauseWhenHot WRITE setPauseWhenHot NOTIFY pauseWhenHotChanged)
    Q_PROPERTY(bool enableOnAC READ enableOnAC WRITE setEnableOnAC NOTIFY enableOnACChanged)
    Q_PROPERTY(bool clamshellEnabled READ clamshellEnabled WRITE setClamshellEnabled NOTIFY clamshellEnabledChanged)
    Q_PROPERTY(bool screenOffOnLidClose READ screenOffOnLidClose WRITE setScreenOffOnLidClose NOTIFY screenOffOnLidCloseChanged)
    Q_PROPERTY(bool notifyOnToggle READ notifyOnToggle WRITE setNotifyOnToggle NOTIFY notifyOnToggleChanged)
    Q_PROPERTY(bool notifyOnPause READ notifyOnPause WRITE setNotifyOnPause NOTIFY notifyOnPauseChanged)
    // clang-format on

public:
    /// Reads every key; what is absent or of another type gets its default. `store` must outlive the settings.
    explicit AppSettings(SettingsStore& store);

    /// Keeps the display awake too.
    bool keepDisplayAwake() const { return m_keepDisplayAwake; }
    void setKeepDisplayAwake(bool on);

    /// Mirrors the login item; the one field that is not stored.
    bool launchAtLogin() const { return m_launchAtLogin; }
    void setLaunchAtLogin(bool on);

    /// The switch of the whole application.
    bool isEnabled() const { return m_isEnabled; }
    void setIsEnabled(bool on);

    const QList<AllowlistedApp>& allowlist() const { return m_allowlist; }
    void setAllowlist(const QList<AllowlistedApp>& apps);

    /// Coding agents of the catalogue count as work.
    bool watchAgents() const { return m_watchAgents; }
    void setWatchAgents(bool on);

    /// Open AI editors of the catalogue count as work.
    bool watchEditors() const { return m_watchEditors; }
    void setWatchEditors(bool on);

    /// Pause while on battery.
    bool requireAC() const { return m_requireAC; }
    void setRequireAC(bool on);

    /// Pause below `batteryThreshold`.
    bool batteryLimitEnabled() const { return m_batteryLimitEnabled; }
    void setBatteryLimitEnabled(bool on);

    /// Percent. Not clamped here.
    int batteryThreshold() const { return m_batteryThreshold; }
    void setBatteryThreshold(int percent);

    /// Pause while the machine runs hot.
    bool pauseWhenHot() const { return m_pauseWhenHot; }
    void setPauseWhenHot(bool on);

    /// Switch on when power is connected.
    bool enableOnAC() const { return m_enableOnAC; }
    void setEnableOnAC(bool on);

    /// Keep running with the lid closed.
    bool clamshellEnabled() const { return m_clamshellEnabled; }
    void setClamshellEnabled(bool on);

    /// Turn the display off when the lid closes.
    bool screenOffOnLidClose() const { return m_screenOffOnLidClose; }
    void setScreenOffOnLidClose(bool on);

    /// Notify of every start and stop.
    bool notifyOnToggle() const { return m_notifyOnToggle; }
    void setNotifyOnToggle(bool on);

    /// Notify of every pause.
    bool notifyOnPause() const { return m_notifyOnPause; }
    void setNotifyOnPause(bool on);

    /// Appends an application unless one with the same identifier is listed already.
    void addToAllowlist(const QString& bundleID, const QString& name);

    /// The rows of the catalogue that count as work now: agents, then editors.
    QList<AgentPreset> watchedPresets() const;

Q_SIGNALS:
    void keepDisplayAwakeChanged();
    void launchAtLoginChanged();
    void isEnabledChanged();
    void allowlistChanged();
    void watchAgentsChanged();
    void watchEditorsChanged();
    void requireACChanged();
    void batteryLimitEnabledChanged();
    void batteryThresholdChanged();
    void pauseWhenHotChanged();
    void enableOnACChanged();
    void clamshellEnabledChanged();
    void screenOffOnLidCloseChanged();
    void notifyOnToggleChanged();
    void notifyOnPauseChanged();
    /// Follows every signal above.
    void changed();

private:
    using Notify = void (AppSettings::*)();

    void publish(Notify notify);
    void updateFlag(bool& field, bool value, const QString& key, Notify notify);

    /// Takes over what is stored and returns the signals of the fields that this has changed.
    std::vector<Notify> readStore();

    SettingsStore& m_store;
    Subscription m_storeChanges;
    bool m_keepDisplayAwake = false;
    bool m_launchAtLogin = false;
    bool m_isEnabled = false;
    QList<AllowlistedApp> m_allowlist;
    bool m_watchAgents = false;
    bool m_watchEditors = false;
    bool m_requireAC = false;
    bool m_batteryLimitEnabled = false;
    int m_batteryThreshold = 0;
    bool m_pauseWhenHot = false;
    bool m_enableOnAC = false;
    bool m_clamshellEnabled = false;
    bool m_screenOffOnLidClose = false;
    bool m_notifyOnToggle = false;
    bool m_notifyOnPause = false;
};

} // namespace Tarvik
