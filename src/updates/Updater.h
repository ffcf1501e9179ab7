// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/UpdateDriver.h"

#include <QObject>

#include <memory>
#include <optional>

namespace Tarvik {

class SettingsStore;

/// Looks for new versions of the application when asked to and, if the user wants that, once a day. Everything that
/// happens to a new version is the driver's.
class Updater : public QObject {
    Q_OBJECT
    // clang-format off
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)
    Q_PROPERTY(bool automaticallyChecksForUpdates READ automaticallyChecksForUpdates WRITE setAutomaticallyChecksForUpdates NOTIFY automaticallyChecksForUpdatesChanged)
    Q_PROPERTY(bool automaticallyDownloadsUpdates READ automaticallyDownloadsUpdates WRITE setAutomaticallyDownloadsUpdates NOTIFY automaticallyDownloadsUpdatesChanged)
    Q_PROPERTY(QString updateChannel READ updateChannel NOTIFY updateChannelChanged)
    // clang-format on

public:
    /// All three must outlive the updater.
    Updater(UpdateDriver& driver, SettingsStore& store, Clock& clock);

    /// Finds out whether updates can be had, for `canCheckForUpdates`.
    void prepare();

    /// Updates can be had and no check is under way; false until `prepare()` has found out.
    bool canCheckForUpdates() const { return m_canCheckForUpdates; }

    /// A check is under way, or the installation of what it has found.
    bool isChecking() const { return m_isChecking; }

    /// How new versions come to this copy: "available", "system", "source" or "manual", see UpdateDriver::Channel, or
    /// "unknown".
    QString updateChannel() const;

    /// Does nothing while `canCheckForUpdates` is false.
    void checkForUpdates();

    bool automaticallyChecksForUpdates() const { return m_automaticallyChecksForUpdates; }
    void setAutomaticallyChecksForUpdates(bool on);

    /// Whether a check also installs what it finds.
    bool automaticallyDownloadsUpdates() const { return m_automaticallyDownloadsUpdates; }
    void setAutomaticallyDownloadsUpdates(bool on);

    /// When a check last succeeded.
    std::optional<TimePoint> lastUpdateCheckDate() const { return m_lastUpdateCheckDate; }

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void updateChannelChanged();
    void automaticallyChecksForUpdatesChanged();
    void automaticallyDownloadsUpdatesChanged();
    void lastUpdateCheckDateChanged();

private:
    void readStore();
    void schedule();
    void scheduleIn(Seconds delay);
    void checkAutomatically();
    void start(UpdateDriver::Initiator initiator);
    void finish(bool hasChecked);
    void updateCanCheck();

    UpdateDriver& m_driver;
    SettingsStore& m_store;
    Clock& m_clock;
    bool m_canCheckForUpdates = false;
    bool m_automaticallyChecksForUpdates = false;
    bool m_automaticallyDownloadsUpdates = false;
    std::optional<TimePoint> m_lastUpdateCheckDate;
    bool m_isChecking = false;
    /// The daily check has come due before it was known whether there can be one.
    bool m_isDue = false;
    std::unique_ptr<Timer> m_timer;
    Subscription m_channelChanges;
    Subscription m_storeChanges;
    Subscription m_ends;
};

} // namespace Tarvik
