// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "updates/Updater.h"

#include "core/SettingsStore.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto checksKey = u"automaticallyChecksForUpdates"_s;
const auto downloadsKey = u"automaticallyDownloadsUpdates"_s;
const auto dateKey = u"lastUpdateCheckDate"_s;

constexpr Seconds period{24.0 * 60 * 60};
/// A session that begins has more urgent things to do.
constexpr Seconds earliest{5.0 * 60};

bool isOn(const SettingsStore& store, const QString& key)
{
    return store.boolean(key).value_or(false);
}

std::optional<TimePoint> readDate(const SettingsStore& store)
{
    const auto seconds = store.integer(dateKey);
    return seconds ? std::optional(TimePoint(Seconds(static_cast<double>(*seconds)))) : std::nullopt;
}

} // namespace

Updater::Updater(UpdateDriver& driver, SettingsStore& store, Clock& clock)
    : m_driver(driver)
    , m_store(store)
    , m_clock(clock)
    , m_automaticallyChecksForUpdates(isOn(store, checksKey))
    , m_automaticallyDownloadsUpdates(isOn(store, downloadsKey))
    , m_lastUpdateCheckDate(readDate(store))
    , m_channelChanges(driver.channelChanged.subscribe([this] {
        Q_EMIT updateChannelChanged();
        updateCanCheck();
    }))
    , m_storeChanges(store.changed.subscribe([this] { readStore(); }))
    , m_ends(driver.finished.subscribe([this](bool hasChecked) { finish(hasChecked); }))
{
    updateCanCheck();
    schedule();
}

void Updater::prepare()
{
    m_driver.prepare();
}

QString Updater::updateChannel() const
{
    switch (m_driver.channel()) {
    case UpdateDriver::Channel::available:
        return u"available"_s;
    case UpdateDriver::Channel::system:
        return u"system"_s;
    case UpdateDriver::Channel::source:
        return u"source"_s;
    case UpdateDriver::Channel::manual:
        return u"manual"_s;
    case UpdateDriver::Channel::unknown:
        break;
    }
    return u"unknown"_s;
}

void Updater::checkForUpdates()
{
    if (m_canCheckForUpdates)
        start(UpdateDriver::Initiator::user);
}

void Updater::setAutomaticallyChecksForUpdates(bool on)
{
    m_automaticallyChecksForUpdates = on;
    m_store.setBoolean(checksKey, on);
    schedule();
    Q_EMIT automaticallyChecksForUpdatesChanged();
}

void Updater::setAutomaticallyDownloadsUpdates(bool on)
{
    m_automaticallyDownloadsUpdates = on;
    m_store.setBoolean(downloadsKey, on);
    Q_EMIT automaticallyDownloadsUpdatesChanged();
}

void Updater::readStore()
{
    const bool checks = isOn(m_store, checksKey);
    const bool downloads = isOn(m_store, downloadsKey);
    const bool isCheckingNew = std::exchange(m_automaticallyChecksForUpdates, checks) != checks;
    const bool isDownloadingNew = std::exchange(m_automaticallyDownloadsUpdates, downloads) != downloads;
    if (isCheckingNew) {
        schedule();
        Q_EMIT automaticallyChecksForUpdatesChanged();
    }
    if (isDownloadingNew)
        Q_EMIT automaticallyDownloadsUpdatesChanged();
}

void Updater::schedule()
{
    m_timer.reset();
    m_isDue = false;
    if (!m_automaticallyChecksForUpdates)
        return;
    const TimePoint now = m_clock.now();
    // A date in the future is that of a clock that was wrong once.
    const Seconds delay = m_lastUpdateCheckDate ? *m_lastUpdateCheckDate + period - now : Seconds::zero();
    scheduleIn(std::clamp(delay, earliest, period));
}

void Updater::scheduleIn(Seconds delay)
{
    m_timer = m_clock.after(delay, [this] { checkAutomatically(); });
}

void Updater::checkAutomatically()
{
    m_isDue = true;
    m_driver.prepare();
    updateCanCheck();
}

void Updater::start(UpdateDriver::Initiator initiator)
{
    m_isChecking = true;
    m_timer.reset();
    updateCanCheck();
    m_driver.start(
        m_automaticallyDownloadsUpdates ? UpdateDriver::Task::checkAndInstall : UpdateDriver::Task::check, initiator);
}

void Updater::finish(bool hasChecked)
{
    m_isChecking = false;
    m_isDue = false;
    if (hasChecked) {
        m_lastUpdateCheckDate = m_clock.now();
        m_store.setInteger(dateKey, static_cast<qint64>(std::floor(m_lastUpdateCheckDate->time_since_epoch().count())));
        Q_EMIT lastUpdateCheckDateChanged();
    }
    // After a failure too: whatever is in the way may be there for long.
    if (m_automaticallyChecksForUpdates)
        scheduleIn(period);
    updateCanCheck();
}

void Updater::updateCanCheck()
{
    const bool canCheck = m_driver.isAvailable() && !m_isChecking;
    if (std::exchange(m_canCheckForUpdates, canCheck) != canCheck)
        Q_EMIT canCheckForUpdatesChanged();
    if (canCheck && m_isDue)
        start(UpdateDriver::Initiator::timer);
}

} // namespace Tarvik
