// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/screenlock/LockCommand.h"

#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace Tarvik {

std::unique_ptr<LockCommand> LockCommand::start(
    const QString& program, const QStringList& arguments, std::function<void(bool succeeded)> onExit)
{
    const QString executable = QStandardPaths::findExecutable(program);
    if (executable.isEmpty())
        return nullptr;
    ChildProcess::Command command{.words = {QFile::encodeName(executable).toStdString()}, .hasOwnSession = true};
    for (const QString& argument : arguments)
        command.words.push_back(argument.toLocal8Bit().toStdString());
    auto process = ChildProcess::start(std::move(command));
    if (!process)
        return nullptr;
    return std::unique_ptr<LockCommand>(new LockCommand(*std::move(process), std::move(onExit)));
}

LockCommand::LockCommand(ChildProcess process, std::function<void(bool succeeded)> onExit)
    : m_process(std::move(process))
    , m_onExit(std::move(onExit))
    , m_notifier(std::make_unique<QSocketNotifier>(m_process.endDescriptor(), QSocketNotifier::Read))
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
    m_notifier->setEnabled(false);
    const bool succeeded = m_process.reap() == 0;
    const auto onExit = m_onExit;
    onExit(succeeded);
}

} // namespace Tarvik
