// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/HookSpec.h"
#include "hookconfig/HookConfigFile.h"

#include <QSet>
#include <QString>

#include <sys/stat.h>

#include <array>
#include <ctime>
#include <optional>

namespace Tarvik {

/// Reads and edits the agents' own hook configuration files, synchronously. Every edit reads its file afresh, and a
/// file that cannot be written back without loss is never touched.
class HookFiles {
public:
    /// `home` is the user's home directory, `toolPath` the absolute path of the command-line tool.
    HookFiles(QString home, QString toolPath);

    /// Reads the agent's file; logs an Invalid one.
    HookConfigFile::Contents read(const HookSpec& spec) const;

    /// Adds our entries to the agent's file, which is created with its directories if there is none. Returns whether
    /// the file was written; on failure, which is logged, it is as before. A file that exists but cannot be read is a
    /// failure.
    [[nodiscard]] bool install(const HookSpec& spec) const;

    /// Takes our entries out of the agent's file. Returns whether none are left: true without a file, false after a
    /// failed write or where the file is Invalid.
    [[nodiscard]] bool uninstall(const HookSpec& spec) const;

    /// Installs again wherever our entries are there but incomplete, or a command does not run the tool.
    void refreshOutdated() const;

    /// The ids of the agents in whose files our entries stand under every start event. Made for being asked again and
    /// again: only a file that has changed since the last time is read, and it is logged when it has become Invalid.
    QSet<QString> installedIds();

private:
    /// What tells one state of a file from another, see stat(2).
    struct Version {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        timespec modified{};
        timespec changed{};

        static std::optional<Version> of(const QString& path);
        bool isSettled() const;
        bool operator==(const Version& other) const;
    };

    /// What was found in an agent's file.
    struct Finding {
        std::optional<Version> version;
        bool isInvalid = false;
        bool isInstalled = false;
    };

    QString filePath(const HookSpec& spec) const;
    HookConfigFile file(const HookSpec& spec) const;
    HookConfigFile::Reading readOrLog(const HookSpec& spec) const;
    void look(const HookSpec& spec, Finding& finding) const;

    QString m_home;
    QString m_toolPath;
    std::array<Finding, HookSpec::all.size()> m_findings;
};

} // namespace Tarvik
