// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/programs/InstalledProgramFile.h"

#include "core/Logging.h"

#include <QFile>
#include <QProcessEnvironment>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

bool isProgram(const QString& path, struct stat& status)
{
    const QByteArray name = QFile::encodeName(path);
    return stat(name.constData(), &status) == 0 && S_ISREG(status.st_mode) && access(name.constData(), X_OK) == 0;
}

/// Has the dynamic linker of a program list what it needs instead of starting it.
ChildProcess::Command linkerCommand(const QString& program, int output)
{
    ChildProcess::Command command = StartedProgram::command(program, {});
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_TRACE_LOADED_OBJECTS"_s, u"1"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    command.environment.emplace();
    for (const QString& variable : environment.toStringList())
        command.environment->push_back(variable.toLocal8Bit().toStdString());
    command.output = output;
    command.hasErrorsInOutput = true;
    return command;
}

/// The first complaint in such a list; empty without one.
QByteArray complaintIn(const QByteArray& libraries)
{
    for (const QByteArray& line : libraries.split('\n')) {
        if (line.contains("not found"))
            return line.trimmed();
    }
    return libraries.contains(" => ") ? QByteArray() : QByteArrayLiteral("it is no complete program");
}

QByteArray contentOf(const FileDescriptor& file)
{
    QByteArray content;
    std::array<char, 4096> chunk;
    ssize_t count = 0;
    while (
        (count = pread(file.get(), chunk.data(), chunk.size(), content.size())) > 0 || (count < 0 && errno == EINTR)) {
        content.append(chunk.data(), std::max<ssize_t>(count, 0));
    }
    return content;
}

} // namespace

InstalledProgramFile::InstalledProgramFile(Paths paths)
    : m_paths(std::move(paths))
    , m_watch(m_paths.others + QStringList(m_paths.installed), [this] { changed(); })
{
}

InstalledProgramFile::~InstalledProgramFile()
{
    if (m_linker)
        StartedProgram::end(std::move(m_linker));
}

bool InstalledProgramFile::isReplaced() const
{
    struct stat running = {};
    struct stat installed = {};
    return stat(QFile::encodeName(m_paths.running).constData(), &running) == 0
        && isProgram(m_paths.installed, installed)
        && (running.st_dev != installed.st_dev || running.st_ino != installed.st_ino);
}

void InstalledProgramFile::check(std::function<void(bool wouldStart)> done)
{
    m_done = std::move(done);
    struct stat status = {};
    m_output = FileDescriptor(memfd_create("libraries", MFD_CLOEXEC));
    if (m_output.isValid() && isProgram(m_paths.installed, status)) {
        m_linker = StartedProgram::start(linkerCommand(m_paths.installed, m_output.get()),
            [this](std::optional<int> exitStatus) { finish(exitStatus == 0); });
    }
    if (!m_linker)
        finish(false);
}

void InstalledProgramFile::finish(bool hasSucceeded)
{
    m_linker.reset();
    const QByteArray complaint = complaintIn(contentOf(std::exchange(m_output, FileDescriptor())));
    const bool wouldStart = hasSucceeded && complaint.isEmpty();
    if (!wouldStart) {
        qCWarning(logSystem,
            "What is installed as %ls would not start: %s",
            qUtf16Printable(m_paths.installed),
            complaint.constData());
    }
    const auto done = std::exchange(m_done, {});
    done(wouldStart);
}

} // namespace Tarvik
