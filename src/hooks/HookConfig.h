// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/HookSpec.h"
#include "hooks/JsonValue.h"

#include <QSet>
#include <QString>

#include <variant>

/// Reads and edits the agents' own hook configuration files. Works synchronously and keeps nothing between two calls;
/// a file that cannot be written back without loss is never touched. `home` is the user's home directory, `toolPath`
/// the absolute path of the command-line tool.
namespace Tarvik::HookConfig {

/// No file, an empty one, or one that cannot be read.
struct Missing { };

/// Not a JSON object, or one that could not be written back as it was.
struct Invalid { };

using Contents = std::variant<Missing, Invalid, JsonValue::Object>;

/// Larger files are Invalid; no agent's settings come near it.
inline constexpr qint64 maximumBytes = 16LL * 1024 * 1024;

/// Reads the agent's file; logs an Invalid one.
Contents read(const HookSpec& spec, const QString& home);

/// Adds our entries to the agent's file, which is created with its directories if there is none. Returns whether the
/// file was written; on failure, which is logged, it is as before. A file that exists but cannot be read is a failure.
[[nodiscard]] bool install(const HookSpec& spec, const QString& home, const QString& toolPath);

/// Takes our entries out of the agent's file. Returns whether none are left: true without a file, false after a failed
/// write or where the file is Invalid.
[[nodiscard]] bool uninstall(const HookSpec& spec, const QString& home);

/// Installs again wherever our entries are there but incomplete, or a command does not run the tool at `toolPath`.
void refreshOutdated(const QString& home, const QString& toolPath);

/// The ids of the agents in whose files our entries stand under every start event.
QSet<QString> installedIds(const QString& home);

/// The same for whoever asks again and again: a file is only logged when it has become Invalid since the last time.
/// `invalidIds` is what is remembered from one time to the next, empty to begin with.
QSet<QString> installedIds(const QString& home, QSet<QString>& invalidIds);

} // namespace Tarvik::HookConfig
