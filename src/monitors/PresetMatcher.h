// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AgentPreset.h"
#include "monitors/ProcessEntry.h"

#include <QList>
#include <QSet>
#include <QStringList>

#include <unordered_map>
#include <vector>

namespace Tarvik {

/// Matches what is running against rows of the catalogue, looking at each process once whatever the number of rows.
class PresetMatcher {
public:
    /// Rows whose id is in `excludedIds` are never detected.
    PresetMatcher(const QList<AgentPreset>& presets, const QSet<QString>& excludedIds);

    /// `name` exactly as the desktop shows it.
    void addApplication(const QString& name);
    void addProcess(const ProcessEntry& process);

    /// One label for each detected row, in the order of the rows.
    QStringList detectedLabels() const;

private:
    struct Row {
        QString label;
        std::optional<QString> appName;
        std::optional<std::string> pathHint;
        bool isDetected = false;
    };

    std::vector<Row> m_rows;
    std::unordered_multimap<std::string, size_t> m_rowsByProcessName;
};

} // namespace Tarvik
