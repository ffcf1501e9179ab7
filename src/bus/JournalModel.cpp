// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/JournalModel.h"

#include "core/Logging.h"
#include "dbus/WireValue.h"
#include "journal/JournalEntry.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

enum Role {
    idRole = Qt::UserRole,
    atRole,
    kindRole,
    reasonRole,
    iconNameRole,
    iconColorRole,
};

QString iconName(JournalEntry::Kind kind)
{
    switch (kind) {
    case JournalEntry::Kind::on:
        return u"bolt.fill"_s;
    case JournalEntry::Kind::off:
        return u"moon.zzz"_s;
    case JournalEntry::Kind::paused:
        return u"pause.circle"_s;
    case JournalEntry::Kind::resumed:
        return u"play.circle"_s;
    }
    Q_UNREACHABLE();
}

bool isEntry(const JournalRow& row)
{
    return journalKindFromName(row.kind) && WireValue::toDateTime(row.at);
}

} // namespace

int JournalModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant JournalModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const JournalRow& row = m_rows[index.row()];
    const auto kind = *journalKindFromName(row.kind);
    switch (role) {
    case idRole:
        return row.id;
    case atRole:
        return *WireValue::toDateTime(row.at);
    case kindRole:
        return row.kind;
    case reasonRole:
        return row.reason;
    case iconNameRole:
        return iconName(kind);
    case iconColorRole:
        return kind == JournalEntry::Kind::paused ? u"orange"_s : u"secondary"_s;
    default:
        return {};
    }
}

QHash<int, QByteArray> JournalModel::roleNames() const
{
    return {{idRole, "entryId"},
        {atRole, "at"},
        {kindRole, "kind"},
        {reasonRole, "reason"},
        {iconNameRole, "iconName"},
        {iconColorRole, "iconColor"}};
}

void JournalModel::show(const QList<JournalRow>& entries)
{
    QList<JournalRow> rows;
    std::ranges::copy_if(entries, std::back_inserter(rows), isEntry);
    if (rows.size() < entries.size())
        qCWarning(logSystem, "Tarvik sent %lld journal entries that are none", qlonglong(entries.size() - rows.size()));

    const auto front = m_rows.isEmpty() ? rows.end() : std::ranges::find(rows, m_rows.front());
    const qsizetype added = front - rows.begin();
    const qsizetype kept = rows.size() - added;
    if (kept == 0 || kept > m_rows.size() || !std::equal(front, rows.end(), m_rows.begin())) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
        return;
    }
    if (kept < m_rows.size()) {
        beginRemoveRows({}, static_cast<int>(kept), static_cast<int>(m_rows.size()) - 1);
        m_rows.resize(kept);
        endRemoveRows();
    }
    if (added > 0) {
        beginInsertRows({}, 0, static_cast<int>(added) - 1);
        m_rows = rows;
        endInsertRows();
    }
}

} // namespace Tarvik
