// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"

namespace Tarvik {

/// The updater of the running Tarvik. Creating the mirror makes Tarvik find out whether updates can be had.
class UpdaterMirror : public Tarvik::PropertyMirror {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    // clang-format off
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)
    Q_PROPERTY(bool automaticallyChecksForUpdates READ automaticallyChecksForUpdates WRITE setAutomaticallyChecksForUpdates NOTIFY automaticallyChecksForUpdatesChanged)
    Q_PROPERTY(bool automaticallyDownloadsUpdates READ automaticallyDownloadsUpdates WRITE setAutomaticallyDownloadsUpdates NOTIFY automaticallyDownloadsUpdatesChanged)
    Q_PROPERTY(QString updateChannel READ updateChannel NOTIFY updateChannelChanged)
    Q_PROPERTY(QVariant lastUpdateCheckDate READ lastUpdateCheckDate NOTIFY lastUpdateCheckDateChanged)
    // clang-format on

public:
    explicit UpdaterMirror(const QDBusConnection& bus);

    bool canCheckForUpdates() const { return value("canCheckForUpdates").toBool(); }
    /// Empty until it is known.
    QString updateChannel() const { return value("updateChannel").toString(); }
    bool automaticallyChecksForUpdates() const { return value("automaticallyChecksForUpdates").toBool(); }
    void setAutomaticallyChecksForUpdates(bool on) { write("automaticallyChecksForUpdates", on); }
    bool automaticallyDownloadsUpdates() const { return value("automaticallyDownloadsUpdates").toBool(); }
    void setAutomaticallyDownloadsUpdates(bool on) { write("automaticallyDownloadsUpdates", on); }
    /// A date; undefined in QML when there was no check yet.
    QVariant lastUpdateCheckDate() const;

    Q_INVOKABLE void checkForUpdates();

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void updateChannelChanged();
    void automaticallyChecksForUpdatesChanged();
    void automaticallyDownloadsUpdatesChanged();
    void lastUpdateCheckDateChanged();
};

} // namespace Tarvik
