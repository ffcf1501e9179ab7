// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace Tarvik {

/// One row of the catalogue: a coding agent or an AI editor that is recognised while it runs.
struct AgentPreset {
    /// Stable, lower case. For a hookable agent the same as its hook's id.
    QString id;
    /// The name shown to the user.
    QString label;
    /// Executable names that identify the agent among running processes; empty for editors.
    QStringList processNames;
    /// The name that identifies an editor among running applications; absent for command-line agents.
    std::optional<QString> appName;
    /// Text that the command line must contain as well, in lower case; for agents with short names.
    std::optional<QString> pathHint;

    bool operator==(const AgentPreset&) const = default;
};

} // namespace Tarvik
