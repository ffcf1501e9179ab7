// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hotkey/LockScreen.h"

#include "core/Logging.h"
#include "platform/ScreenLock.h"

#include <QCoreApplication>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

HotKeyPurpose LockShortcut::purpose()
{
    return {.name = u"lock-screen"_s, .description = QCoreApplication::translate("LockShortcut", "Lock the screen")};
}

void lockScreen(ScreenLock& screenLock, std::function<void(const QString& title, const QString& body)> tell)
{
    screenLock.lock([tell = std::move(tell)](const QString& error) {
        if (error.isEmpty())
            return;
        qCCritical(logSystem, "Could not lock the screen: %s", qUtf8Printable(error));
        tell(QCoreApplication::translate("LockScreen", "Tarvik could not lock the screen"),
            error.front().toUpper() + error.mid(1));
    });
}

} // namespace Tarvik
