// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/programs/StartedProgram.h"

#include <QFile>

#include <utility>

namespace Tarvik {

std::unique_ptr<StartedProgram> StartedProgram::start(ChildProcess::Command command, ExitReceiver onExit)
{
    auto process = ChildProcess::start(std::move(command));
    if (!process)
        return nullptr;
    return std::unique_ptr<StartedProgram>(new StartedProgram(*std::move(process), std::move(onExit)));
}

StartedProgram::StartedProgram(ChildProcess process, ExitReceiver onExit)
    : m_process(std::move(process))
    , m_onExit(std::move(onExit))
    , m_notifier(std::make_unique<QSocketNotifier>(m_process.endDescriptor(), QSocketNotifier::Read))
{
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { reap(); });
}

StartedProgram::~StartedProgram()
{
    m_notifier->disconnect();
    m_notifier->setEnabled(false);
    // The end may be told by the notifier's own call.
    m_notifier.release()->deleteLater();
}

ChildProcess::Command StartedProgram::command(const QString& executable, const QStringList& arguments)
{
    ChildProcess::Command command{.words = {QFile::encodeName(executable).toStdString()}, .hasOwnSession = true};
    for (const QString& argument : arguments)
        command.words.push_back(argument.toLocal8Bit().toStdString());
    return command;
}

void StartedProgram::end(std::unique_ptr<StartedProgram> program)
{
    if (!program->isRunning())
        return;
    program->m_process.kill();
    StartedProgram* lasting = program.release();
    lasting->m_onExit = [lasting](std::optional<int>) { delete lasting; };
}

void StartedProgram::reap()
{
    m_notifier->setEnabled(false);
    const std::optional<int> status = m_process.reap();
    const auto onExit = m_onExit;
    onExit(status);
}

} // namespace Tarvik
