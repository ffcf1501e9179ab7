// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hotkey/LockScreen.h"

#include "core/Logging.h"
#include "platform/ScreenLock.h"

#include <QCoreApplication>

namespace Tarvik {

using namespace Qt::StringLiterals;

HotKeyPurpose LockShortcut::purpose()
{
    return {.name = u"lock-screen"_s, .description = QCoreApplication::translate("LockShortcut", "Lock the screen")};
}

void lockScreen(ScreenLock& screenLock)
{
    screenLock.lock([](const QString& error) {
        if (!error.isEmpty())
            qCCritical(logSystem, "Could not lock the screen: %s", qUtf8Printable(error));
    });
}

} // namespace Tarvik
