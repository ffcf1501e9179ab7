// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/HotKeys.h"

#include <QCoreApplication>

namespace Tarvik {

QString hotKeyStatusText(HotKeyStatus status)
{
    switch (status) {
    case HotKeyStatus::pending:
        return QCoreApplication::translate("HotKeys", "pending");
    case HotKeyStatus::registered:
        return QCoreApplication::translate("HotKeys", "registered");
    case HotKeyStatus::taken:
        return QCoreApplication::translate("HotKeys", "taken by another program");
    case HotKeyStatus::notAvailable:
        return QCoreApplication::translate("HotKeys", "not available");
    }
    Q_UNREACHABLE();
}

} // namespace Tarvik
