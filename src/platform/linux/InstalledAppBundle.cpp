// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/InstalledAppBundle.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace Tarvik {

AppBundle installedAppBundle()
{
    const QDir executables(QCoreApplication::applicationDirPath());
    return {
        .location = QDir::cleanPath(executables.filePath(u"../.."_s)),
        .identifier = u"com.morvanta.Tarvik"_s,
        .shortVersion = QStringLiteral(TARVIK_VERSION),
        .version = QStringLiteral(TARVIK_BUILD_NUMBER),
    };
}

} // namespace Tarvik
