// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AgentPreset.h"
#include "monitors/ProcessEntry.h"
#include "platform/RunningApplications.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace Tarvik {

/// Finds rows of the catalogue in what is running, looking at each process once whatever the number of rows.
class PresetMatcher {
public:
    explicit PresetMatcher(const QList<AgentPreset>& presets);

    /// The ids of the rows that are running. Applications count by the name that the desktop shows.
    QSet<QString> runningIds(
        const QList<RunningApplication>& applications, const std::vector<ProcessEntry>& processes) const;

private:
    struct Row {
        QString id;
        std::optional<std::string> pathHint;
    };

    QHash<QString, QString> m_idsByAppName;
    std::unordered_multimap<std::string, Row> m_rowsByProcessName;
};

} // namespace Tarvik
