// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "journal/Journal.h"

#include "core/SettingsStore.h"

#include <QCoreApplication>
#include <QDateTime>

#include <cmath>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

constexpr qsizetype limit = 200;
const auto storeKey = u"journal"_s;

QString exportedKind(JournalEntry::Kind kind)
{
    switch (kind) {
    case JournalEntry::Kind::on:
        return QCoreApplication::translate("Journal", "Keeping awake");
    case JournalEntry::Kind::off:
        return QCoreApplication::translate("Journal", "Stopped");
    case JournalEntry::Kind::paused:
        return QCoreApplication::translate("Journal", "Paused");
    case JournalEntry::Kind::resumed:
        return QCoreApplication::translate("Journal", "Resumed");
    }
    Q_UNREACHABLE();
}

QString exportedTime(TimePoint at)
{
    const auto seconds = static_cast<qint64>(std::floor(at.time_since_epoch().count()));
    return QDateTime::fromSecsSinceEpoch(seconds).toUTC().toString(Qt::ISODate);
}

} // namespace

Journal::Journal(SettingsStore& store, const Clock& clock)
    : m_store(store)
    , m_clock(clock)
{
    if (const auto stored = m_store.data(storeKey))
        m_entries = decodeJournal(*stored).value_or(QList<Entry>{});
}

void Journal::record(Entry::Kind kind, const QString& reason)
{
    m_entries.prepend({.id = QUuid::createUuid(), .at = m_clock.now(), .kind = kind, .reason = reason});
    if (m_entries.size() > limit)
        m_entries.resize(limit);
    save();
    Q_EMIT entriesChanged();
}

void Journal::clear()
{
    m_entries.clear();
    save();
    Q_EMIT entriesChanged();
}

QString Journal::exportText() const
{
    QStringList lines;
    for (const Entry& entry : m_entries)
        lines.append(exportedTime(entry.at) + u"  "_s + exportedKind(entry.kind) + u": "_s + entry.reason);
    return lines.join(u'\n');
}

void Journal::save()
{
    m_store.setData(storeKey, encodeJournal(m_entries));
}

} // namespace Tarvik
