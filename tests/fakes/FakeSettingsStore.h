// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/SettingsStore.h"

#include <QMap>
#include <QVariant>

namespace Tarvik {

/// Settings in memory; `writes` lists the keys set, in order.
class FakeSettingsStore final : public SettingsStore {
public:
    bool contains(const QString& key) const override { return values.contains(key); }
    std::optional<bool> boolean(const QString& key) const override { return value<bool>(key); }
    std::optional<qint64> integer(const QString& key) const override { return value<qint64>(key); }
    std::optional<QString> string(const QString& key) const override { return value<QString>(key); }
    std::optional<QByteArray> data(const QString& key) const override { return value<QByteArray>(key); }

    void setBoolean(const QString& key, bool newValue) override { set(key, newValue); }
    void setInteger(const QString& key, qint64 newValue) override { set(key, newValue); }
    void setString(const QString& key, const QString& newValue) override { set(key, newValue); }
    void setData(const QString& key, const QByteArray& newValue) override { set(key, newValue); }

    /// All that is stored from now on, by somebody else.
    void replace(const QMap<QString, QVariant>& others)
    {
        values = others;
        changed();
    }

    QMap<QString, QVariant> values;
    QStringList writes;

private:
    template <typename T>
    std::optional<T> value(const QString& key) const
    {
        const QVariant stored = values.value(key);
        if (stored.metaType() != QMetaType::fromType<T>())
            return {};
        return stored.value<T>();
    }

    template <typename T>
    void set(const QString& key, const T& newValue)
    {
        values[key] = QVariant::fromValue(newValue);
        writes.append(key);
    }
};

} // namespace Tarvik
