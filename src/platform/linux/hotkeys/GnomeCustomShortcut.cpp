// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/GnomeCustomShortcut.h"

#include "platform/linux/gsettings/InstalledSettings.h"

#include <QByteArrayList>

#include <gio/gio.h>

#include <utility>
#include <vector>

namespace Tarvik {

namespace {

constexpr auto listSchema = "org.gnome.settings-daemon.plugins.media-keys";
constexpr auto listKey = "custom-keybindings";
constexpr auto shortcutSchema = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr auto shortcutDirectory = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/";

QByteArrayList shortcuts(GSettings* settings)
{
    QByteArrayList list;
    gchar** paths = g_settings_get_strv(settings, listKey);
    for (gchar** path = paths; *path != nullptr; ++path)
        list.append(*path);
    g_strfreev(paths);
    return list;
}

bool setShortcuts(GSettings* settings, const QByteArrayList& list)
{
    std::vector<const gchar*> paths;
    for (const QByteArray& path : list)
        paths.push_back(path.constData());
    paths.push_back(nullptr);
    return g_settings_set_strv(settings, listKey, paths.data()) != FALSE;
}

} // namespace

std::unique_ptr<GnomeCustomShortcut> GnomeCustomShortcut::set(const QString& id, const Content& content)
{
    const QByteArray path = shortcutDirectory + id.toUtf8() + '/';
    const InstalledSettings::Pointer list = InstalledSettings::open(listSchema, nullptr);
    const InstalledSettings::Pointer shortcut = InstalledSettings::open(shortcutSchema, path.constData());
    if (list == nullptr || shortcut == nullptr)
        return nullptr;
    std::unique_ptr<GnomeCustomShortcut> set(new GnomeCustomShortcut(path));
    for (const auto& [key, value] : {std::pair("name", content.name),
             std::pair("command", content.command),
             std::pair("binding", content.binding)}) {
        if (g_settings_set_string(shortcut.get(), key, value.toUtf8().constData()) == FALSE)
            return nullptr;
    }
    QByteArrayList paths = shortcuts(list.get());
    if (!paths.contains(path)) {
        paths.append(path);
        if (!setShortcuts(list.get(), paths))
            return nullptr;
    }
    return set;
}

GnomeCustomShortcut::GnomeCustomShortcut(QByteArray path)
    : m_path(std::move(path))
{
}

GnomeCustomShortcut::~GnomeCustomShortcut()
{
    const InstalledSettings::Pointer list = InstalledSettings::open(listSchema, nullptr);
    const InstalledSettings::Pointer shortcut = InstalledSettings::open(shortcutSchema, m_path.constData());
    if (list == nullptr || shortcut == nullptr)
        return;
    QByteArrayList paths = shortcuts(list.get());
    if (paths.removeAll(m_path) > 0) {
        if (paths.isEmpty())
            g_settings_reset(list.get(), listKey);
        else
            setShortcuts(list.get(), paths);
    }
    for (const char* key : {"name", "command", "binding"})
        g_settings_reset(shortcut.get(), key);
    // The program may be about to end, and what is written is only on its way.
    g_settings_sync();
}

} // namespace Tarvik
