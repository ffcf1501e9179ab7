// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"

#include <QStringList>

#include <functional>

namespace Tarvik {

/// The settings of the running Tarvik. What is set shows at once here and is read back when Tarvik has answered.
class SettingsMirror : public Tarvik::PropertyMirror {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    // clang-format off
    Q_PROPERTY(bool keepDisplayAwake READ keepDisplayAwake WRITE setKeepDisplayAwake NOTIFY keepDisplayAwakeChanged)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY launchAtLoginChanged)
    Q_PROPERTY(bool isEnabled READ isEnabled WRITE setIsEnabled NOTIFY isEnabledChanged)
    Q_PROPERTY(QVariantList allowlist READ allowlist NOTIFY allowlistChanged)
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
    explicit SettingsMirror(const QDBusConnection& bus);

    bool keepDisplayAwake() const { return value("keepDisplayAwake").toBool(); }
    void setKeepDisplayAwake(bool on) { write("keepDisplayAwake", on); }
    bool launchAtLogin() const { return value("launchAtLogin").toBool(); }
    void setLaunchAtLogin(bool on) { write("launchAtLogin", on); }
    bool isEnabled() const { return value("isEnabled").toBool(); }
    void setIsEnabled(bool on) { write("isEnabled", on); }
    /// Objects with "bundleID" and "name".
    QVariantList allowlist() const;
    Q_INVOKABLE void addToAllowlist(const QString& bundleID, const QString& name);
    Q_INVOKABLE void removeFromAllowlist(const QString& bundleID);
    /// Asks for the ids of the applications that are open. `done` gets none of them where Tarvik does not answer.
    void askForRunningApplications(std::function<void(const QStringList& ids)> done);
    bool watchAgents() const { return value("watchAgents").toBool(); }
    void setWatchAgents(bool on) { write("watchAgents", on); }
    bool watchEditors() const { return value("watchEditors").toBool(); }
    void setWatchEditors(bool on) { write("watchEditors", on); }
    bool requireAC() const { return value("requireAC").toBool(); }
    void setRequireAC(bool on) { write("requireAC", on); }
    bool batteryLimitEnabled() const { return value("batteryLimitEnabled").toBool(); }
    void setBatteryLimitEnabled(bool on) { write("batteryLimitEnabled", on); }
    int batteryThreshold() const { return value("batteryThreshold").toInt(); }
    void setBatteryThreshold(int percent) { write("batteryThreshold", percent); }
    bool pauseWhenHot() const { return value("pauseWhenHot").toBool(); }
    void setPauseWhenHot(bool on) { write("pauseWhenHot", on); }
    bool enableOnAC() const { return value("enableOnAC").toBool(); }
    void setEnableOnAC(bool on) { write("enableOnAC", on); }
    bool clamshellEnabled() const { return value("clamshellEnabled").toBool(); }
    void setClamshellEnabled(bool on) { write("clamshellEnabled", on); }
    bool screenOffOnLidClose() const { return value("screenOffOnLidClose").toBool(); }
    void setScreenOffOnLidClose(bool on) { write("screenOffOnLidClose", on); }
    bool notifyOnToggle() const { return value("notifyOnToggle").toBool(); }
    void setNotifyOnToggle(bool on) { write("notifyOnToggle", on); }
    bool notifyOnPause() const { return value("notifyOnPause").toBool(); }
    void setNotifyOnPause(bool on) { write("notifyOnPause", on); }

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
};

} // namespace Tarvik
