// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tarvik {

/// Where the application is installed and which release it is.
struct AppBundle {
    /// Absolute path of the directory that holds "Contents".
    QString location;
    /// "com.morvanta.Tarvik".
    QString identifier;
    /// CFBundleShortVersionString, such as "1.2.0".
    QString shortVersion;
    /// CFBundleVersion: another one for every build that is handed out.
    QString version;

    /// The command-line tool inside the bundle; its path ends up in other programs' configuration.
    QString toolPath() const { return location + QStringLiteral("/Contents/SharedSupport/tarvik"); }

    /// The application's icons, laid out as in an icon theme, for programs that draw them.
    QString iconDirectory() const { return location + QStringLiteral("/Contents/Resources/icons"); }

    /// The program that shows the windows.
    QString uiPath() const { return location + QStringLiteral("/Contents/Linux/TarvikUi"); }

    bool operator==(const AppBundle&) const = default;
};

} // namespace Tarvik
