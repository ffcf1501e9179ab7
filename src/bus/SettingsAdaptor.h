// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "bus/PropertyAnnouncer.h"
#include "core/AppSettings.h"

#include <QDBusAbstractAdaptor>

#include <functional>

namespace Tarvik {

/// The settings on the session bus; com.morvanta.Tarvik.Settings1.xml is the contract.
class SettingsAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.morvanta.Tarvik.Settings1")
    // clang-format off
    Q_PROPERTY(bool keepDisplayAwake READ keepDisplayAwake WRITE setKeepDisplayAwake)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin)
    Q_PROPERTY(bool isEnabled READ isEnabled WRITE setIsEnabled)
    Q_PROPERTY(bool watchAgents READ watchAgents WRITE setWatchAgents)
    Q_PROPERTY(bool watchEditors READ watchEditors WRITE setWatchEditors)
    Q_PROPERTY(bool requireAC READ requireAC WRITE setRequireAC)
    Q_PROPERTY(bool batteryLimitEnabled READ batteryLimitEnabled WRITE setBatteryLimitEnabled)
    Q_PROPERTY(int batteryThreshold READ batteryThreshold WRITE setBatteryThreshold)
    Q_PROPERTY(bool pauseWhenHot READ pauseWhenHot WRITE setPauseWhenHot)
    Q_PROPERTY(bool enableOnAC READ enableOnAC WRITE setEnableOnAC)
    Q_PROPERTY(bool clamshellEnabled READ clamshellEnabled WRITE setClamshellEnabled)
    Q_PROPERTY(bool screenOffOnLidClose READ screenOffOnLidClose WRITE setScreenOffOnLidClose)
    Q_PROPERTY(bool notifyOnToggle READ notifyOnToggle WRITE setNotifyOnToggle)
    Q_PROPERTY(bool notifyOnPause READ notifyOnPause WRITE setNotifyOnPause)
    // clang-format on

public:
    /// `object` is what is registered on the bus and owns the adaptor; `settings` must outlive it.
    SettingsAdaptor(QObject& object, AppSettings& settings, const QDBusConnection& bus);

    bool keepDisplayAwake() const { return m_settings.keepDisplayAwake(); }
    void setKeepDisplayAwake(bool on) { m_settings.setKeepDisplayAwake(on); }
    bool launchAtLogin() const { return m_settings.launchAtLogin(); }
    void setLaunchAtLogin(bool on);
    bool isEnabled() const { return m_settings.isEnabled(); }
    void setIsEnabled(bool on) { m_settings.setIsEnabled(on); }
    bool watchAgents() const { return m_settings.watchAgents(); }
    void setWatchAgents(bool on) { m_settings.setWatchAgents(on); }
    bool watchEditors() const { return m_settings.watchEditors(); }
    void setWatchEditors(bool on) { m_settings.setWatchEditors(on); }
    bool requireAC() const { return m_settings.requireAC(); }
    void setRequireAC(bool on) { m_settings.setRequireAC(on); }
    bool batteryLimitEnabled() const { return m_settings.batteryLimitEnabled(); }
    void setBatteryLimitEnabled(bool on) { m_settings.setBatteryLimitEnabled(on); }
    int batteryThreshold() const { return m_settings.batteryThreshold(); }
    void setBatteryThreshold(int percent);
    bool pauseWhenHot() const { return m_settings.pauseWhenHot(); }
    void setPauseWhenHot(bool on) { m_settings.setPauseWhenHot(on); }
    bool enableOnAC() const { return m_settings.enableOnAC(); }
    void setEnableOnAC(bool on) { m_settings.setEnableOnAC(on); }
    bool clamshellEnabled() const { return m_settings.clamshellEnabled(); }
    void setClamshellEnabled(bool on);
    bool screenOffOnLidClose() const { return m_settings.screenOffOnLidClose(); }
    void setScreenOffOnLidClose(bool on) { m_settings.setScreenOffOnLidClose(on); }
    bool notifyOnToggle() const { return m_settings.notifyOnToggle(); }
    void setNotifyOnToggle(bool on) { m_settings.setNotifyOnToggle(on); }
    bool notifyOnPause() const { return m_settings.notifyOnPause(); }
    void setNotifyOnPause(bool on) { m_settings.setNotifyOnPause(on); }

    /// These two settings take more than being stored; without a function they are just set.
    std::function<void(bool on)> onSetLaunchAtLogin;
    std::function<void(bool on)> onSetClamshellEnabled;

private:
    AppSettings& m_settings;
    PropertyAnnouncer m_announcer;
};

} // namespace Tarvik
