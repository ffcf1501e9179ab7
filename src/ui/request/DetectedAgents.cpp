// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/request/DetectedAgents.h"

#include "core/AgentCatalogue.h"
#include "ui/request/AgentSearch.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace Tarvik {

DetectedAgents::DetectedAgents()
{
    find();
}

void DetectedAgents::setSearch(const QString& search)
{
    if (m_search == search)
        return;
    m_search = search;
    beginResetModel();
    find();
    endResetModel();
    Q_EMIT searchChanged();
}

int DetectedAgents::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant DetectedAgents::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const AgentPreset& row = m_rows.at(index.row());
    const bool isEditor = index.row() >= m_firstEditor;
    switch (role) {
    case labelRole:
        return row.label;
    case processNamesRole:
        return row.processNames.join(", "_L1);
    case isEditorRole:
        return isEditor;
    case sectionRole:
        return isEditor ? QCoreApplication::translate("DetectedAgents", "AI editors (while open)")
                        : QCoreApplication::translate("DetectedAgents", "Agents");
    default:
        return {};
    }
}

QHash<int, QByteArray> DetectedAgents::roleNames() const
{
    return {
        {labelRole, "label"}, {processNamesRole, "processNames"}, {isEditorRole, "isEditor"}, {sectionRole, "section"}};
}

void DetectedAgents::find()
{
    m_rows = AgentSearch::matching(AgentCatalogue::agents(), m_search);
    m_firstEditor = m_rows.size();
    m_rows += AgentSearch::matching(AgentCatalogue::editors(), m_search);
}

} // namespace Tarvik
