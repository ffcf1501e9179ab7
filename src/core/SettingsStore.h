// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tarvik {

/// The persistent key-value store of the user's preferences. Types are kept: a number stored as a string is not an
/// integer, and a key that is absent is not false. A query for another type than the stored one finds nothing.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// Whether the key is present, whatever the type of its value.
    virtual bool contains(const QString& key) const = 0;

    virtual std::optional<bool> boolean(const QString& key) const = 0;
    virtual std::optional<qint64> integer(const QString& key) const = 0;
    virtual std::optional<QString> string(const QString& key) const = 0;
    virtual std::optional<QByteArray> data(const QString& key) const = 0;

    /// Setting never fails for the caller: what cannot be written is logged and kept in memory.
    virtual void setBoolean(const QString& key, bool value) = 0;
    virtual void setInteger(const QString& key, qint64 value) = 0;
    virtual void setString(const QString& key, const QString& value) = 0;
    virtual void setData(const QString& key, const QByteArray& value) = 0;

    /// Somebody else has changed what is stored.
    Signal<void()> changed;
};

} // namespace Tarvik
