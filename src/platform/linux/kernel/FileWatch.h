// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"

#include <QByteArray>
#include <QSocketNotifier>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>
#include <set>

namespace Tarvik {

/// Notices that files were written, made, replaced or removed, by whomever, see inotify(7). Neither they nor their
/// directories need exist. Where links lead to a file, all of them are watched, so that one that is made to lead
/// elsewhere is noticed, too. Costs nothing while nobody touches the files and what is beside them. Where the kernel
/// grants no watch, that is logged and nothing is noticed.
class FileWatch final {
public:
    /// The paths are absolute. `onChange` is called from the event loop, once for changes that are noticed together; it
    /// may be called without a change, and what it then reads may be only a part of what somebody is about to write.
    FileWatch(QStringList paths, std::function<void()> onChange);
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

private:
    /// The names that matter, by the directory that they are in.
    using Places = std::map<QByteArray, std::set<QByteArray>>;

    Places findPlaces() const;
    void watch();
    void watch(const Places& places);
    void readEvents();

    QStringList m_paths;
    std::function<void()> m_onChange;
    FileDescriptor m_inotify;
    /// The names that matter, by watch descriptor.
    std::map<int, std::set<QByteArray>> m_names;
    std::optional<QSocketNotifier> m_notifier;
};

} // namespace Tarvik
