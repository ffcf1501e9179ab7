// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/screenlock/LockCommand.h"

#include <QFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <optional>
#include <vector>

// Before 2.37, glibc's own header does not declare C linkage.
extern "C" {
#include <sys/pidfd.h>
}

namespace Tarvik {

namespace {

std::optional<pid_t> spawn(std::vector<QByteArray> arguments)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);

    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (QByteArray& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    pid_t child = -1;
    const int error = posix_spawn(&child, pointers.front(), &actions, &attributes, pointers.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? std::optional(child) : std::nullopt;
}

} // namespace

std::unique_ptr<LockCommand> LockCommand::start(
    const QString& program, const QStringList& arguments, std::function<void(bool succeeded)> onExit)
{
    const QString executable = QStandardPaths::findExecutable(program);
    if (executable.isEmpty())
        return nullptr;
    std::vector<QByteArray> words{QFile::encodeName(executable)};
    for (const QString& argument : arguments)
        words.push_back(argument.toLocal8Bit());
    const std::optional<pid_t> child = spawn(std::move(words));
    if (!child)
        return nullptr;
    FileDescriptor pidfd(pidfd_open(*child, 0));
    if (!pidfd.isValid())
        return nullptr;
    return std::unique_ptr<LockCommand>(new LockCommand(std::move(pidfd), std::move(onExit)));
}

LockCommand::LockCommand(FileDescriptor pidfd, std::function<void(bool succeeded)> onExit)
    : m_pidfd(std::move(pidfd))
    , m_onExit(std::move(onExit))
    , m_notifier(std::make_unique<QSocketNotifier>(m_pidfd.get(), QSocketNotifier::Read))
{
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { reap(); });
}

LockCommand::~LockCommand()
{
    m_notifier->disconnect();
    m_notifier->setEnabled(false);
    // The end may be told by the notifier's own call.
    m_notifier.release()->deleteLater();
}

void LockCommand::reap()
{
    siginfo_t status{};
    const int result = waitid(P_PIDFD, static_cast<id_t>(m_pidfd.get()), &status, WEXITED);
    m_notifier->setEnabled(false);
    m_pidfd.reset();
    const auto onExit = m_onExit;
    onExit(result == 0 && status.si_code == CLD_EXITED && status.si_status == 0);
}

} // namespace Tarvik
