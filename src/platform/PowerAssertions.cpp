// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/PowerAssertions.h"

namespace Tarvik {

QString powerAssertionTypeName(PowerAssertionType type)
{
    switch (type) {
    case PowerAssertionType::preventUserIdleSystemSleep:
        return QStringLiteral("PreventUserIdleSystemSleep");
    case PowerAssertionType::preventUserIdleDisplaySleep:
        return QStringLiteral("PreventUserIdleDisplaySleep");
    }
    Q_UNREACHABLE();
}

} // namespace Tarvik
