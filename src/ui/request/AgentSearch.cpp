// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/request/AgentSearch.h"

#include <algorithm>
#include <iterator>

namespace Tarvik {

QList<AgentPreset> AgentSearch::matching(const QList<AgentPreset>& rows, const QString& search)
{
    const QString wanted = search.trimmed().toLower();
    QList<AgentPreset> found;
    std::ranges::copy_if(rows, std::back_inserter(found), [&](const AgentPreset& row) {
        return row.label.toLower().contains(wanted)
            || std::ranges::any_of(row.processNames, [&](const QString& name) { return name.contains(wanted); });
    });
    return found;
}

} // namespace Tarvik
