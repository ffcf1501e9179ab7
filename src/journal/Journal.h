// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "journal/JournalEntry.h"

#include <QObject>

namespace Tarvik {

class SettingsStore;

/// The short history of what was kept awake and why, newest first, stored after every change.
class Journal : public QObject {
    Q_OBJECT

public:
    using Entry = JournalEntry;

    /// Loads the stored list as it is; one that cannot be decoded reads as empty and stays stored until the next save.
    /// `store` and `clock` must outlive the journal.
    Journal(SettingsStore& store, const Clock& clock);

    const QList<Entry>& entries() const { return m_entries; }

    /// Adds an entry with the current time; the oldest beyond 200 go.
    void record(Entry::Kind kind, const QString& reason);

    void clear();

    /// One line an entry, newest first: time in UTC (ISO 8601), two spaces, what happened, ": " and the reason.
    QString exportText() const;

Q_SIGNALS:
    void entriesChanged();

private:
    void save();

    SettingsStore& m_store;
    const Clock& m_clock;
    QList<Entry> m_entries;
};

} // namespace Tarvik
