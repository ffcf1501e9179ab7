// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/JournalModel.h"

#include "core/Logging.h"
#include "dbus/WireValue.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

enum Role {
    idRole = Qt::UserRole,
    atRole,
    dayRole,
    kindRole,
    reasonRole,
    iconNameRole,
    iconColorRole,
};

struct Kind {
    QLatin1StringView name;
    QLatin1StringView icon;
};

constexpr std::array<Kind, 4> kinds{{
    {"on"_L1, "bolt.fill"_L1},
    {"off"_L1, "moon.zzz"_L1},
    {"paused"_L1, "pause.circle"_L1},
    {"resumed"_L1, "play.circle"_L1},
}};

bool isEntry(const JournalRow& row)
{
    return std::ranges::find(kinds, row.kind, &Kind::name) != kinds.end() && WireValue::toDateTime(row.at);
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
    switch (role) {
    case idRole:
        return row.id;
    case atRole:
        return *WireValue::toDateTime(row.at);
    case dayRole:
        return WireValue::toDateTime(row.at)->toLocalTime().date().toString(Qt::ISODate);
    case kindRole:
        return row.kind;
    case reasonRole:
        return row.reason;
    case iconNameRole:
        return std::ranges::find(kinds, row.kind, &Kind::name)->icon.toString();
    case iconColorRole:
        return row.kind == "paused"_L1 ? u"orange"_s : u"secondary"_s;
    default:
        return {};
    }
}

QHash<int, QByteArray> JournalModel::roleNames() const
{
    return {{idRole, "entryId"},
        {atRole, "at"},
        {dayRole, "day"},
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
