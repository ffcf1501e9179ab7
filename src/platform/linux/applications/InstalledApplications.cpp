// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/InstalledApplications.h"

#include "base/Releaser.h"

#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

constexpr auto suffix = ".desktop"_L1;
/// Desktop files take some kilobytes, with all their translations.
constexpr qint64 maximumBytes = qint64{1024} * 1024;

using Text = Owned<char, g_free>;
using DesktopFile = Owned<GDesktopAppInfo, g_object_unref>;

/// Nothing for one without an id.
std::optional<InstalledApplication> describe(GDesktopAppInfo* desktopFile)
{
    GAppInfo* info = G_APP_INFO(desktopFile);
    QString id = QString::fromUtf8(g_app_info_get_id(info));
    if (!id.endsWith(suffix) || id.size() == suffix.size())
        return {};
    id.chop(suffix.size());
    const Text icon(g_desktop_app_info_get_string(desktopFile, G_KEY_FILE_DESKTOP_KEY_ICON));
    return InstalledApplication{.bundleID = id,
        .name = QString::fromUtf8(g_app_info_get_display_name(info)).remove(u".app"_s),
        .icon = QString::fromUtf8(icon.get())};
}

} // namespace

QList<InstalledApplication> installedApplications()
{
    QList<InstalledApplication> applications;
    GList* all = g_app_info_get_all();
    for (const GList* entry = all; entry != nullptr; entry = entry->next) {
        if (g_app_info_should_show(static_cast<GAppInfo*>(entry->data)) == FALSE)
            continue;
        if (auto application = describe(G_DESKTOP_APP_INFO(entry->data)))
            applications.append(*std::move(application));
    }
    g_list_free_full(all, g_object_unref);
    return applications;
}

std::optional<InstalledApplication> applicationOfFile(const QString& path)
{
    const QFileInfo file(path);
    if (!path.endsWith(suffix) || !file.isFile() || file.size() > maximumBytes)
        return {};
    const DesktopFile info(g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()));
    if (info == nullptr || g_desktop_app_info_get_is_hidden(info.get()) != FALSE)
        return {};
    return describe(info.get());
}

} // namespace Tarvik
