// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tarvik {

/// An application that could be put on the allow-list.
struct InstalledApplication {
    /// Desktop-file id without ".desktop".
    QString bundleID;
    /// Display name, without any ".app".
    QString name;
    /// The name of an icon in the icon theme, or the absolute path of a picture; empty when there is none.
    QString icon;

    bool operator==(const InstalledApplication&) const = default;
};

} // namespace Tarvik
