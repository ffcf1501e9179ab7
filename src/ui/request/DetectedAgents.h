// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AgentPreset.h"

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QtQmlIntegration>

namespace Tarvik {

/// What of everything that is detected matches a search: agents, then editors, in the order of the catalogue.
class DetectedAgents : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString search READ search WRITE setSearch NOTIFY searchChanged)

public:
    enum Role {
        labelRole = Qt::UserRole,
        /// Separated by commas; empty for editors.
        processNamesRole,
        isEditorRole,
        /// The heading of the section.
        sectionRole,
    };

    DetectedAgents();

    const QString& search() const { return m_search; }
    /// See AgentSearch::matching.
    void setSearch(const QString& search);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void searchChanged();

private:
    void find();

    QString m_search;
    /// The editors follow the agents.
    QList<AgentPreset> m_rows;
    qsizetype m_firstEditor = 0;
};

} // namespace Tarvik
