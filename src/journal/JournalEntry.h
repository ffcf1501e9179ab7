// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace Tarvik {

/// One line of the history: when keeping awake began, ended, paused or resumed, and why.
struct JournalEntry {
    enum class Kind {
        on,
        off,
        paused,
        resumed,
    };

    QUuid id;
    TimePoint at;
    Kind kind = Kind::on;
    QString reason;

    bool operator==(const JournalEntry&) const = default;
};

/// "on", "off", "paused", "resumed".
QString journalKindName(JournalEntry::Kind kind);
std::optional<JournalEntry::Kind> journalKindFromName(QStringView name);

/// A JSON array of objects with the keys "id", "at" (seconds since 2001-01-01 00:00:00 UTC), "kind" and "reason".
QByteArray encodeJournal(const QList<JournalEntry>& entries);

/// Nothing when a single entry is not as above.
std::optional<QList<JournalEntry>> decodeJournal(const QByteArray& json);

} // namespace Tarvik
