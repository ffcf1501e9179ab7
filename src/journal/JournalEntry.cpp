// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "journal/JournalEntry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// 2001-01-01 00:00:00 UTC: the zero of the stored times.
constexpr TimePoint referenceDate{Seconds{978'307'200}};

/// Of the forms of a UUID only the canonical one; zero is one like any other.
std::optional<QUuid> decodeId(const QString& text)
{
    const auto id = QUuid::fromString(text);
    const bool isCanonical = id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) == 0;
    return isCanonical ? std::optional(id) : std::nullopt;
}

std::optional<JournalEntry> decodeEntry(const QJsonValue& value)
{
    const QJsonValue at = value[u"at"];
    const QJsonValue reason = value[u"reason"];
    const auto id = decodeId(value[u"id"].toString());
    const auto kind = journalKindFromName(value[u"kind"].toString());
    if (!id || !at.isDouble() || !kind || !reason.isString())
        return {};
    return JournalEntry{
        .id = *id, .at = referenceDate + Seconds{at.toDouble()}, .kind = *kind, .reason = reason.toString()};
}

} // namespace

QString journalKindName(JournalEntry::Kind kind)
{
    switch (kind) {
    case JournalEntry::Kind::on:
        return u"on"_s;
    case JournalEntry::Kind::off:
        return u"off"_s;
    case JournalEntry::Kind::paused:
        return u"paused"_s;
    case JournalEntry::Kind::resumed:
        return u"resumed"_s;
    }
    Q_UNREACHABLE();
}

std::optional<JournalEntry::Kind> journalKindFromName(QStringView name)
{
    using enum JournalEntry::Kind;
    for (const auto kind : {on, off, paused, resumed}) {
        if (name == journalKindName(kind))
            return kind;
    }
    return {};
}

QByteArray encodeJournal(const QList<JournalEntry>& entries)
{
    QJsonArray array;
    for (const JournalEntry& entry : entries) {
        array.append(QJsonObject{
            {u"id"_s, entry.id.toString(QUuid::WithoutBraces)},
            {u"at"_s, (entry.at - referenceDate).count()},
            {u"kind"_s, journalKindName(entry.kind)},
            {u"reason"_s, entry.reason},
        });
    }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<JournalEntry>> decodeJournal(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return {};
    QList<JournalEntry> entries;
    for (const auto& element : document.array()) {
        const auto entry = decodeEntry(element);
        if (!entry)
            return {};
        entries.append(*entry);
    }
    return entries;
}

} // namespace Tarvik
