// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/contracts/ModelTypes.h"

#include <QAbstractListModel>
#include <QtQmlIntegration>

namespace Tarvik {

/// The journal's entries as the rows of a view, newest first. Every row has the roles "entryId", "at" (a date), "day"
/// (that of `at` in local time, ISO 8601), "kind" ("on", "off", "paused" or "resumed"), "reason", "iconName" and
/// "iconColor" ("secondary" or "orange").
class JournalModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Shows these entries from now on. New ones at the front come in as such, so that a view keeps its place. An entry
    /// that is none, of an unknown kind for example, is left out and logged.
    void show(const QList<JournalRow>& entries);

private:
    QList<JournalRow> m_rows;
};

} // namespace Tarvik
