// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/InstalledApplications.h"

#include <QCollator>

#include <gio/gio.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

constexpr auto suffix = ".desktop"_L1;

} // namespace

QList<AllowlistedApp> installedApplications()
{
    QList<AllowlistedApp> applications;
    GList* all = g_app_info_get_all();
    for (const GList* entry = all; entry != nullptr; entry = entry->next) {
        auto* info = static_cast<GAppInfo*>(entry->data);
        QString id = QString::fromUtf8(g_app_info_get_id(info));
        if (!id.endsWith(suffix) || g_app_info_should_show(info) == FALSE)
            continue;
        id.chop(suffix.size());
        applications.append(
            {.bundleID = id, .name = QString::fromUtf8(g_app_info_get_display_name(info)).remove(u".app"_s)});
    }
    g_list_free_full(all, g_object_unref);

    // Folded, because the collation of the C locale knows case only.
    const QCollator collator;
    std::ranges::sort(applications, [&](const AllowlistedApp& left, const AllowlistedApp& right) {
        return collator.compare(left.name.toCaseFolded(), right.name.toCaseFolded()) < 0;
    });
    return applications;
}

} // namespace Tarvik
