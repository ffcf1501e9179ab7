// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace Tarvik {

/// Looks up installed applications by their desktop-file id, without ".desktop", through GIO: the precedence of the
/// data directories, ids of subdirectories, hidden entries and the fallback of locales are its business.
class DesktopFiles {
public:
    DesktopFiles();
    ~DesktopFiles();

    DesktopFiles(const DesktopFiles&) = delete;
    DesktopFiles& operator=(const DesktopFiles&) = delete;

    /// The name in the user's language; nothing when there is no such application.
    std::optional<QString> name(const QString& id);

    /// The application whose windows say that they are of one of these classes (WM_CLASS, app_id), the best first: by
    /// StartupWMClass, else by id, in lower case as well.
    std::optional<QString> idForWindow(const QStringList& classes);

    /// The application whose StartupWMClass is `windowClass`. The first call after a change reads every desktop file.
    std::optional<QString> idForStartupClass(const QString& windowClass);

    /// An application was installed, removed or changed. Only where the event loop runs GLib's main context.
    Signal<void()> changed;

private:
    class Monitor;

    void readStartupClasses();
    void forget();

    QHash<QString, std::optional<QString>> m_names;
    std::optional<QHash<QString, QString>> m_startupClasses;
    std::unique_ptr<Monitor> m_monitor;
};

} // namespace Tarvik
