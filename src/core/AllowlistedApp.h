// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHashFunctions>
#include <QList>
#include <QString>

#include <optional>

namespace Tarvik {

/// An application chosen by the user that keeps the computer awake while it is open.
struct AllowlistedApp {
    /// Desktop-file id without ".desktop"; identifies the entry.
    QString bundleID;
    /// Display name.
    QString name;

    bool operator==(const AllowlistedApp&) const = default;
};

inline size_t qHash(const AllowlistedApp& app, size_t seed = 0)
{
    return qHashMulti(seed, app.bundleID, app.name);
}

/// A JSON array of objects with the keys "bundleID" and "name".
QByteArray encodeAllowlist(const QList<AllowlistedApp>& apps);

/// Nothing when the bytes are not such an array.
std::optional<QList<AllowlistedApp>> decodeAllowlist(const QByteArray& json);

} // namespace Tarvik
