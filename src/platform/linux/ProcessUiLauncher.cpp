// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessUiLauncher.h"

#include <QFileInfo>

#include <csignal>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// A window has nothing to save; it needs no longer to be told.
constexpr int endMilliseconds = 300;

/// A signal that this process takes in another way must reach the other.
void unblockSignals()
{
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

} // namespace

ProcessUiLauncher::ProcessUiLauncher(const QString& executable)
{
    m_process.setProgram(executable);
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setChildProcessModifier(unblockSignals);
    QObject::connect(&m_process, &QProcess::errorOccurred, &m_process, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            reportEnd(m_process.program() + u": "_s + m_process.errorString());
    });
    QObject::connect(&m_process, &QProcess::finished, &m_process, [this](int code, QProcess::ExitStatus status) {
        // For a crash, QProcess gives the signal as the exit code.
        if (status == QProcess::CrashExit)
            reportEnd(u"it crashed with signal %1"_s.arg(code));
        else
            reportEnd(code == 0 ? QString() : u"it ended with status %1"_s.arg(code));
    });
}

ProcessUiLauncher::~ProcessUiLauncher()
{
    m_process.disconnect();
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    if (m_process.waitForFinished(endMilliseconds))
        return;
    m_process.kill();
    m_process.waitForFinished(endMilliseconds);
}

bool ProcessUiLauncher::isInstalled() const
{
    return QFileInfo(m_process.program()).isExecutable();
}

void ProcessUiLauncher::launch()
{
    if (m_process.state() == QProcess::NotRunning)
        m_process.start();
}

void ProcessUiLauncher::kill()
{
    m_process.kill();
}

void ProcessUiLauncher::reportEnd(const QString& failure)
{
    ended(failure);
}

} // namespace Tarvik
