// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"
#include "platform/linux/programs/StartedProgram.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// A program that runs as root, see pkexec(1), after the user has been asked for an administrator's password. It runs
/// on when the object is destroyed.
class AdministratorProgram final {
public:
    /// Nothing when there is no pkexec in PATH. `done` gets later, once, what went wrong, or nothing on success; it may
    /// destroy the object.
    static std::unique_ptr<AdministratorProgram> start(
        const QString& program, std::function<void(const QString& error)> done);
    AdministratorProgram(const AdministratorProgram&) = delete;
    AdministratorProgram& operator=(const AdministratorProgram&) = delete;

private:
    AdministratorProgram(FileDescriptor output, std::function<void(const QString& error)> done);
    void finish(std::optional<int> status);
    QString outputText() const;

    /// A file without a name.
    FileDescriptor m_output;
    std::function<void(const QString& error)> m_done;
    std::unique_ptr<StartedProgram> m_program;
};

} // namespace Tarvik
