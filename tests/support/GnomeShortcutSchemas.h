// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace Tarvik {

/// Of GNOME's settings daemon's settings as much as shortcuts need, kept in memory. To be made before the first use of
/// GSettings, which looks for schemas once.
class GnomeShortcutSchemas {
public:
    GnomeShortcutSchemas()
    {
        qputenv("GSETTINGS_BACKEND", "memory");
        qputenv("GSETTINGS_SCHEMA_DIR", m_directory.path().toUtf8());
        QFile file(m_directory.filePath(QStringLiteral("shortcuts.gschema.xml")));
        m_isReady = file.open(QIODevice::WriteOnly) && file.write(text) > 0;
        file.close();
        m_isReady = m_isReady && QProcess::execute(QStringLiteral("glib-compile-schemas"), {m_directory.path()}) == 0;
    }

    bool isReady() const { return m_isReady; }

private:
    static constexpr auto text = R"(<schemalist>
  <schema id="org.gnome.settings-daemon.plugins.media-keys" path="/org/gnome/settings-daemon/plugins/media-keys/">
    <key name="custom-keybindings" type="as"><default>[]</default></key>
  </schema>
  <schema id="org.gnome.settings-daemon.plugins.media-keys.custom-keybinding">
    <key name="name" type="s"><default>''</default></key>
    <key name="command" type="s"><default>''</default></key>
    <key name="binding" type="s"><default>''</default></key>
  </schema>
</schemalist>)";

    QTemporaryDir m_directory;
    bool m_isReady = false;
};

} // namespace Tarvik
