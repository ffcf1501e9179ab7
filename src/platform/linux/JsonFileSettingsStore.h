// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"
#include "core/SettingsStore.h"
#include "platform/linux/kernel/FileWatch.h"

#include <QJsonObject>

#include <compare>
#include <optional>
#include <string>

namespace Tarvik {

/// Settings in one JSON file: an object whose members are booleans, numbers, strings and, for data values,
/// {"data": "<base64>"}. Every change is on the disk before the setter returns; what cannot be written stays in memory
/// and is tried again with the next change. A file that somebody else edits or replaces is taken over at once. One that
/// cannot be read then may still be being written and is left alone, and one that is removed is not missed, until there
/// is something to store: what cannot be read even then is renamed and reported, never overwritten.
class JsonFileSettingsStore final : public SettingsStore {
public:
    /// The file and its directory need not exist. Of two stores on one file the second changes memory only, and does
    /// not follow the file; see flock(2).
    explicit JsonFileSettingsStore(const QString& path);

    bool contains(const QString& key) const override;
    std::optional<bool> boolean(const QString& key) const override;
    std::optional<qint64> integer(const QString& key) const override;
    std::optional<QString> string(const QString& key) const override;
    std::optional<QByteArray> data(const QString& key) const override;

    void setBoolean(const QString& key, bool value) override;
    void setInteger(const QString& key, qint64 value) override;
    void setString(const QString& key, const QString& value) override;
    void setData(const QString& key, const QByteArray& value) override;

private:
    /// What tells one version of the file from another, see stat(2).
    struct Version {
        quint64 inode = 0;
        qint64 size = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;

        bool operator==(const Version&) const = default;
    };

    std::optional<Version> currentVersion() const;
    bool lock();
    void load();
    void follow();
    void setAside(const QString& why);
    void set(const QString& key, const QJsonValue& value);
    void write();

    QString m_path;
    FileDescriptor m_lock;
    QJsonObject m_values;
    std::optional<Version> m_version;
    bool m_mayWrite = true;
    std::string m_lastError;
    /// None in the second of two stores.
    std::optional<FileWatch> m_watch;
};

} // namespace Tarvik
