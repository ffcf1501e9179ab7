// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/AllowlistedApp.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace Tarvik {

QByteArray encodeAllowlist(const QList<AllowlistedApp>& apps)
{
    QJsonArray array;
    for (const AllowlistedApp& app : apps)
        array.append(QJsonObject{{u"bundleID"_s, app.bundleID}, {u"name"_s, app.name}});
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<AllowlistedApp>> decodeAllowlist(const QByteArray& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return {};
    QList<AllowlistedApp> apps;
    for (const auto& element : document.array()) {
        const QJsonValue bundleID = element[u"bundleID"];
        const QJsonValue name = element[u"name"];
        if (!bundleID.isString() || !name.isString())
            return {};
        apps.append({.bundleID = bundleID.toString(), .name = name.toString()});
    }
    return apps;
}

} // namespace Tarvik
