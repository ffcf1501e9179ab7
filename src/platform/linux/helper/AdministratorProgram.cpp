// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/helper/AdministratorProgram.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// The exit statuses of pkexec(1) itself.
constexpr int dismissed = 126;
constexpr int notAuthorized = 127;

/// Neither message of pkexec is translated.
const auto withoutAgent = u"No authentication agent found"_s;
const auto withoutRight = u"Not authorized"_s;

QString describe(std::optional<int> status, const QString& output)
{
    if (status == 0)
        return {};
    if (status == dismissed)
        return QCoreApplication::translate("AdministratorProgram", "No administrator’s password was given.");
    if (status == notAuthorized && output.contains(withoutAgent))
        return QCoreApplication::translate("AdministratorProgram",
            "Nothing in this session can ask for an administrator’s password: no polkit agent is running.");
    if (status == notAuthorized && output.contains(withoutRight))
        return QCoreApplication::translate(
            "AdministratorProgram", "Only an administrator of this computer may do this.");
    // pkexec names its reason first; a program that gives up does so last.
    const QString line
        = output.trimmed().section(u'\n', status == notAuthorized ? 0 : -1, status == notAuthorized ? 0 : -1);
    return line.isEmpty() ? QCoreApplication::translate("AdministratorProgram", "It ended before it was done.") : line;
}

} // namespace

std::unique_ptr<AdministratorProgram> AdministratorProgram::start(
    const QString& program, std::function<void(const QString& error)> done)
{
    const QString pkexec = QStandardPaths::findExecutable(u"pkexec"_s);
    FileDescriptor output(memfd_create("tarvik-pkexec", MFD_CLOEXEC));
    if (pkexec.isEmpty() || !output.isValid())
        return nullptr;
    // In a session of its own, because it would ask in a terminal if there were one.
    auto command = StartedProgram::command(pkexec, {u"--disable-internal-agent"_s, program});
    // pkexec refuses to work for some values of what it does not need.
    command.environment = {{"PATH=/usr/sbin:/usr/bin:/sbin:/bin"}};
    command.output = output.get();
    command.hasErrorsInOutput = true;
    auto started = std::unique_ptr<AdministratorProgram>(new AdministratorProgram(std::move(output), std::move(done)));
    started->m_program = StartedProgram::start(
        std::move(command), [owner = started.get()](std::optional<int> status) { owner->finish(status); });
    return started->m_program ? std::move(started) : nullptr;
}

AdministratorProgram::AdministratorProgram(FileDescriptor output, std::function<void(const QString& error)> done)
    : m_output(std::move(output))
    , m_done(std::move(done))
{
}

void AdministratorProgram::finish(std::optional<int> status)
{
    const auto done = m_done;
    done(describe(status, outputText()));
}

QString AdministratorProgram::outputText() const
{
    std::array<char, 4096> bytes{};
    const ssize_t count = pread(m_output.get(), bytes.data(), bytes.size(), 0);
    return count > 0 ? QString::fromLocal8Bit(bytes.data(), count) : QString();
}

} // namespace Tarvik
