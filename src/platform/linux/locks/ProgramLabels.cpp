// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/ProgramLabels.h"

#include "platform/linux/kernel/OwnProcesses.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

ProgramLabels::ProgramLabels(Applications applications)
    : m_applications(std::move(applications))
    , m_user(qEnvironmentVariable("USER"))
{
}

QString ProgramLabels::label(const QString& who, std::optional<qint64> process) const
{
    // Some give the path of their executable, GNOME's daemons the user's name.
    const QString claim = who == m_user ? QString() : who.section(u'/', -1).trimmed();
    const QString executable = process ? OwnProcesses::name(*process) : QString();
    QStringList names{claim, executable};
    names.removeAll(QString());
    if (names.isEmpty())
        return process ? u"process %1"_s.arg(*process) : u"?"_s;
    return m_applications(names).value_or(names.constFirst());
}

} // namespace Tarvik
