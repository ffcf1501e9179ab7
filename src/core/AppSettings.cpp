// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/AppSettings.h"

#include "core/AgentCatalogue.h"
#include "core/SettingsStore.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

int readThreshold(const SettingsStore& store)
{
    constexpr int fallback = 20;
    const qint64 stored = store.integer(u"batteryThreshold"_s).value_or(fallback);
    const bool fits = stored >= std::numeric_limits<int>::min() && stored <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(stored) : fallback;
}

/// Older releases stored a mode instead of a switch.
bool readIsEnabled(const SettingsStore& store)
{
    if (const auto stored = store.boolean(u"isEnabled"_s))
        return *stored;
    return store.string(u"keepAwakeMode"_s) != u"off"_s;
}

/// Lid-closed mode is offered to new users only: nobody's machine may behave differently after an update.
bool readClamshellEnabled(const SettingsStore& store)
{
    if (const auto stored = store.boolean(u"clamshellEnabled"_s))
        return *stored;
    const auto existingKeys
        = {u"clamshellOnboardingComplete"_s, u"keepAwakeMode"_s, u"enabledAgentIDs"_s, u"allowlist"_s};
    return std::ranges::none_of(existingKeys, [&](const QString& key) { return store.contains(key); });
}

QList<AllowlistedApp> readAllowlist(const SettingsStore& store)
{
    const auto stored = store.data(u"allowlist"_s);
    return stored ? decodeAllowlist(*stored).value_or(QList<AllowlistedApp>{}) : QList<AllowlistedApp>{};
}

} // namespace

AppSettings::AppSettings(SettingsStore& store)
    : m_store(store)
    , m_storeChanges(store.changed.subscribe([this] {
        for (const Notify notify : readStore())
            publish(notify);
    }))
{
    readStore();
}

std::vector<AppSettings::Notify> AppSettings::readStore()
{
    std::vector<Notify> news;
    const auto take = [&news](auto& field, const auto& stored, Notify notify) {
        if (field == stored)
            return;
        field = stored;
        news.push_back(notify);
    };
    const auto takeFlag = [&](bool& field, const QString& key, bool fallback, Notify notify) {
        take(field, m_store.boolean(key).value_or(fallback), notify);
    };
    takeFlag(m_keepDisplayAwake, u"keepDisplayAwake"_s, false, &AppSettings::keepDisplayAwakeChanged);
    take(m_isEnabled, readIsEnabled(m_store), &AppSettings::isEnabledChanged);
    take(m_allowlist, readAllowlist(m_store), &AppSettings::allowlistChanged);
    takeFlag(m_watchAgents, u"watchAgents"_s, true, &AppSettings::watchAgentsChanged);
    takeFlag(m_watchEditors, u"watchEditors"_s, false, &AppSettings::watchEditorsChanged);
    takeFlag(m_requireAC, u"requireAC"_s, false, &AppSettings::requireACChanged);
    takeFlag(m_batteryLimitEnabled, u"batteryLimitEnabled"_s, false, &AppSettings::batteryLimitEnabledChanged);
    take(m_batteryThreshold, readThreshold(m_store), &AppSettings::batteryThresholdChanged);
    takeFlag(m_pauseWhenHot, u"pauseWhenHot"_s, true, &AppSettings::pauseWhenHotChanged);
    takeFlag(m_enableOnAC, u"enableOnAC"_s, true, &AppSettings::enableOnACChanged);
    take(m_clamshellEnabled, readClamshellEnabled(m_store), &AppSettings::clamshellEnabledChanged);
    takeFlag(m_screenOffOnLidClose, u"screenOffOnLidClose"_s, true, &AppSettings::screenOffOnLidCloseChanged);
    takeFlag(m_notifyOnToggle, u"notifyOnToggle"_s, false, &AppSettings::notifyOnToggleChanged);
    takeFlag(m_notifyOnPause, u"notifyOnPause"_s, true, &AppSettings::notifyOnPauseChanged);
    return news;
}

void AppSettings::publish(Notify notify)
{
    Q_EMIT(this->*notify)();
    Q_EMIT changed();
}

void AppSettings::updateFlag(bool& field, bool value, const QString& key, Notify notify)
{
    field = value;
    m_store.setBoolean(key, value);
    publish(notify);
}

void AppSettings::setLaunchAtLogin(bool on)
{
    m_launchAtLogin = on;
    publish(&AppSettings::launchAtLoginChanged);
}

void AppSettings::setKeepDisplayAwake(bool on)
{
    updateFlag(m_keepDisplayAwake, on, u"keepDisplayAwake"_s, &AppSettings::keepDisplayAwakeChanged);
}

void AppSettings::setIsEnabled(bool on)
{
    updateFlag(m_isEnabled, on, u"isEnabled"_s, &AppSettings::isEnabledChanged);
}

void AppSettings::setWatchAgents(bool on)
{
    updateFlag(m_watchAgents, on, u"watchAgents"_s, &AppSettings::watchAgentsChanged);
}

void AppSettings::setWatchEditors(bool on)
{
    updateFlag(m_watchEditors, on, u"watchEditors"_s, &AppSettings::watchEditorsChanged);
}

void AppSettings::setRequireAC(bool on)
{
    updateFlag(m_requireAC, on, u"requireAC"_s, &AppSettings::requireACChanged);
}

void AppSettings::setBatteryLimitEnabled(bool on)
{
    updateFlag(m_batteryLimitEnabled, on, u"batteryLimitEnabled"_s, &AppSettings::batteryLimitEnabledChanged);
}

void AppSettings::setPauseWhenHot(bool on)
{
    updateFlag(m_pauseWhenHot, on, u"pauseWhenHot"_s, &AppSettings::pauseWhenHotChanged);
}

void AppSettings::setEnableOnAC(bool on)
{
    updateFlag(m_enableOnAC, on, u"enableOnAC"_s, &AppSettings::enableOnACChanged);
}

void AppSettings::setClamshellEnabled(bool on)
{
    updateFlag(m_clamshellEnabled, on, u"clamshellEnabled"_s, &AppSettings::clamshellEnabledChanged);
}

void AppSettings::setScreenOffOnLidClose(bool on)
{
    updateFlag(m_screenOffOnLidClose, on, u"screenOffOnLidClose"_s, &AppSettings::screenOffOnLidCloseChanged);
}

void AppSettings::setNotifyOnToggle(bool on)
{
    updateFlag(m_notifyOnToggle, on, u"notifyOnToggle"_s, &AppSettings::notifyOnToggleChanged);
}

void AppSettings::setNotifyOnPause(bool on)
{
    updateFlag(m_notifyOnPause, on, u"notifyOnPause"_s, &AppSettings::notifyOnPauseChanged);
}

void AppSettings::setBatteryThreshold(int percent)
{
    m_batteryThreshold = percent;
    m_store.setInteger(u"batteryThreshold"_s, percent);
    publish(&AppSettings::batteryThresholdChanged);
}

void AppSettings::setAllowlist(const QList<AllowlistedApp>& apps)
{
    m_allowlist = apps;
    m_store.setData(u"allowlist"_s, encodeAllowlist(apps));
    publish(&AppSettings::allowlistChanged);
}

void AppSettings::addToAllowlist(const QString& bundleID, const QString& name)
{
    if (std::ranges::find(m_allowlist, bundleID, &AllowlistedApp::bundleID) != m_allowlist.end())
        return;
    setAllowlist(m_allowlist + QList<AllowlistedApp>{{.bundleID = bundleID, .name = name}});
}

QList<AgentPreset> AppSettings::watchedPresets() const
{
    QList<AgentPreset> presets;
    if (m_watchAgents)
        presets += AgentCatalogue::agents();
    if (m_watchEditors)
        presets += AgentCatalogue::editors();
    return presets;
}

} // namespace Tarvik
