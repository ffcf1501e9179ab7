// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/CommandDisplaySwitch.h"

#include <QStandardPaths>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

CommandDisplaySwitch::~CommandDisplaySwitch()
{
    switchOn();
}

void CommandDisplaySwitch::switchOff(Receiver done)
{
    const QString executable = QStandardPaths::findExecutable(u"kscreen-doctor"_s);
    if (executable.isEmpty()) {
        done(u"kscreen-doctor is not installed"_s);
        return;
    }
    m_program = StartedProgram::start(StartedProgram::command(executable, {u"--dpms"_s, u"off"_s}),
        [done](std::optional<int> status) { done(status == 0 ? QString() : u"kscreen-doctor has failed"_s); });
    if (!m_program)
        done(u"kscreen-doctor cannot be started"_s);
}

void CommandDisplaySwitch::switchOn()
{
    if (m_program)
        StartedProgram::end(std::move(m_program));
}

} // namespace Tarvik
