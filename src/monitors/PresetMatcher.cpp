// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/PresetMatcher.h"

#include <ranges>

namespace Tarvik {

PresetMatcher::PresetMatcher(const QList<AgentPreset>& presets)
{
    for (const AgentPreset& preset : presets) {
        if (preset.appName)
            m_idsByAppName.insert(*preset.appName, preset.id);
        Row row{.id = preset.id, .pathHint = {}};
        if (preset.pathHint)
            row.pathHint = preset.pathHint->toStdString();
        for (const QString& name : preset.processNames)
            m_rowsByProcessName.emplace(name.toLower().toStdString(), row);
    }
}

QSet<QString> PresetMatcher::runningIds(
    const QList<RunningApplication>& applications, const std::vector<ProcessEntry>& processes) const
{
    QSet<QString> ids;
    for (const RunningApplication& application : applications) {
        const auto id = m_idsByAppName.constFind(application.localizedName);
        if (id != m_idsByAppName.constEnd())
            ids.insert(*id);
    }
    for (const ProcessEntry& process : processes) {
        for (const std::string& name : process.names) {
            const auto [first, last] = m_rowsByProcessName.equal_range(name);
            for (const auto& [processName, row] : std::ranges::subrange(first, last)) {
                if (!row.pathHint || process.commandLine.find(*row.pathHint) != std::string::npos)
                    ids.insert(row.id);
            }
        }
    }
    return ids;
}

} // namespace Tarvik
