// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"
#include "platform/ProgramFile.h"
#include "platform/linux/kernel/FileWatch.h"
#include "platform/linux/programs/StartedProgram.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace Tarvik {

/// A program's file on the disk. What is there would start when the dynamic linker finds all that it needs, see
/// LD_TRACE_LOADED_OBJECTS in ld.so(8).
class InstalledProgramFile final : public ProgramFile {
public:
    struct Paths {
        /// Leads to the file that runs even when that has no name any more, as /proc/self/exe in proc(5).
        QString running;
        /// Where the program is installed.
        QString installed;
        /// What else is installed with it.
        QStringList others;
    };

    explicit InstalledProgramFile(Paths paths);
    ~InstalledProgramFile() override;

    bool isReplaced() const override;
    void check(std::function<void(bool wouldStart)> done) override;

private:
    void finish(bool hasSucceeded);

    Paths m_paths;
    FileWatch m_watch;
    FileDescriptor m_output;
    std::unique_ptr<StartedProgram> m_linker;
    std::function<void(bool wouldStart)> m_done;
};

} // namespace Tarvik
