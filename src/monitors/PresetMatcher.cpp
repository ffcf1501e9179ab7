// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/PresetMatcher.h"

#include <ranges>

namespace Tarvik {

PresetMatcher::PresetMatcher(const QList<AgentPreset>& presets, const QSet<QString>& excludedIds)
{
    for (const AgentPreset& preset : presets) {
        if (excludedIds.contains(preset.id))
            continue;
        for (const QString& name : preset.processNames)
            m_rowsByProcessName.emplace(name.toLower().toStdString(), m_rows.size());
        Row row{.label = preset.label, .appName = preset.appName, .pathHint = {}};
        if (preset.pathHint)
            row.pathHint = preset.pathHint->toStdString();
        m_rows.push_back(std::move(row));
    }
}

void PresetMatcher::addApplication(const QString& name)
{
    for (Row& row : m_rows) {
        if (row.appName == name)
            row.isDetected = true;
    }
}

void PresetMatcher::addProcess(const ProcessEntry& process)
{
    for (const std::string& name : process.names) {
        const auto [first, last] = m_rowsByProcessName.equal_range(name);
        for (const auto& [processName, index] : std::ranges::subrange(first, last)) {
            Row& row = m_rows[index];
            if (!row.pathHint || process.commandLine.find(*row.pathHint) != std::string::npos)
                row.isDetected = true;
        }
    }
}

QStringList PresetMatcher::detectedLabels() const
{
    QStringList labels;
    for (const Row& row : m_rows) {
        if (row.isDetected)
            labels.append(row.label);
    }
    return labels;
}

} // namespace Tarvik
