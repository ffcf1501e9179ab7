// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

namespace Tarvik {

/// One of the shortcuts that GNOME lets its user make up, in the settings of its settings daemon (GSettings schema
/// org.gnome.settings-daemon.plugins.media-keys). Taken out of them again when the object is destroyed. What a killed
/// program has left there is replaced by the next one that sets the same id.
class GnomeCustomShortcut final {
public:
    struct Content {
        /// For the user who looks at the keyboard settings.
        QString name;
        /// In a shell's words, without a shell.
        QString command;
        /// As GTK writes accelerators: "<Super><Alt>a".
        QString binding;
    };

    /// `id` is a single path element. Nothing when GNOME's settings are not installed or may not be written.
    static std::unique_ptr<GnomeCustomShortcut> set(const QString& id, const Content& content);
    ~GnomeCustomShortcut();

    GnomeCustomShortcut(const GnomeCustomShortcut&) = delete;
    GnomeCustomShortcut& operator=(const GnomeCustomShortcut&) = delete;

private:
    explicit GnomeCustomShortcut(QByteArray path);

    QByteArray m_path;
};

} // namespace Tarvik
