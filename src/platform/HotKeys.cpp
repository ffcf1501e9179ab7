// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/HotKeys.h"

namespace Tarvik {

using namespace Qt::StringLiterals;

QString hotKeyStatusText(HotKeyStatus status)
{
    switch (status) {
    case HotKeyStatus::pending:
        return u"pending"_s;
    case HotKeyStatus::registered:
        return u"registered"_s;
    case HotKeyStatus::taken:
        return u"taken by another program"_s;
    case HotKeyStatus::notAvailable:
        return u"not available"_s;
    }
    Q_UNREACHABLE();
}

} // namespace Tarvik
