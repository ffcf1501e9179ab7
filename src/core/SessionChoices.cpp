// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/SessionChoices.h"

#include <QCoreApplication>

namespace Tarvik::SessionChoices {

QList<Length> lengths()
{
    return {
        {10, QCoreApplication::translate("SessionChoices", "10 minutes")},
        {60, QCoreApplication::translate("SessionChoices", "1 hour")},
        {120, QCoreApplication::translate("SessionChoices", "2 hours")},
        {960, QCoreApplication::translate("SessionChoices", "All day (16 h)")},
    };
}

QString title(bool isRunning)
{
    return isRunning ? QCoreApplication::translate("SessionChoices", "Change session…")
                     : QCoreApplication::translate("SessionChoices", "Keep awake for…");
}

QString cancel()
{
    return QCoreApplication::translate("SessionChoices", "Cancel timer");
}

} // namespace Tarvik::SessionChoices
