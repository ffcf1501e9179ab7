// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/FileWatch.h"

#include "core/Logging.h"

#include <QFile>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <list>
#include <system_error>
#include <utility>

namespace Tarvik {

namespace {

using Path = std::filesystem::path;

constexpr int maximumLinks = 40;
/// A file that is being written says so when it is closed.
constexpr uint32_t changesOfEntries = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVE;
constexpr uint32_t changesOfDirectory = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT;

QByteArray bytesOf(const Path& path)
{
    return QByteArray::fromStdString(path.native());
}

/// Calls `use` with every directory on the way to `path` and the name in it that decides where the way leads: those of
/// links and, at the end, that of the file or of whatever is missing first.
template <typename Use>
void follow(const Path& path, const Use& use)
{
    std::list<Path> names;
    const auto prepend = [&names](const Path& way) { names.insert(names.begin(), way.begin(), way.end()); };
    prepend(path.relative_path());
    Path directory = path.root_path();
    int links = 0;
    while (!names.empty()) {
        const Path name = names.front();
        names.pop_front();
        struct stat status = {};
        const bool exists = lstat((directory / name).c_str(), &status) == 0;
        if (exists && S_ISDIR(status.st_mode) && !names.empty()) {
            directory = name == ".." ? directory.parent_path() : name == "." ? directory : directory / name;
            continue;
        }
        use(directory, name);
        if (!exists || !S_ISLNK(status.st_mode) || ++links > maximumLinks)
            return;
        std::error_code error;
        const Path target = std::filesystem::read_symlink(directory / name, error);
        if (target.is_absolute())
            directory = target.root_path();
        prepend(target.relative_path());
    }
}

} // namespace

FileWatch::FileWatch(QStringList paths, std::function<void()> onChange)
    : m_paths(std::move(paths))
    , m_onChange(std::move(onChange))
    , m_inotify(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (!m_inotify.isValid()) {
        qCInfo(logSystem, "Files are not watched: %s", std::strerror(errno));
        return;
    }
    m_notifier.emplace(m_inotify.get(), QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this] { readEvents(); });
    watch();
}

FileWatch::Places FileWatch::findPlaces() const
{
    Places places;
    for (const QString& path : m_paths) {
        follow(QFile::encodeName(path).toStdString(),
            [&places](const Path& directory, const Path& name) { places[bytesOf(directory)].insert(bytesOf(name)); });
    }
    return places;
}

void FileWatch::watch()
{
    // What is made between looking and watching would go unnoticed.
    Places watched;
    for (Places found = findPlaces(); found != watched; found = findPlaces()) {
        watch(found);
        watched = std::move(found);
    }
}

void FileWatch::watch(const Places& places)
{
    const auto former = std::exchange(m_names, {});
    for (const auto& [directory, names] : places) {
        // A directory that is watched already gets the same descriptor again.
        const int descriptor = inotify_add_watch(
            m_inotify.get(), directory.constData(), changesOfEntries | changesOfDirectory | IN_ONLYDIR);
        if (descriptor >= 0)
            m_names[descriptor].insert(names.begin(), names.end());
        else if (errno == ENOSPC)
            qCInfo(logSystem, "%s is not watched: too many watches", directory.constData());
    }
    for (const auto& [descriptor, names] : former) {
        if (!m_names.contains(descriptor))
            inotify_rm_watch(m_inotify.get(), descriptor);
    }
}

void FileWatch::readEvents()
{
    bool isAnyOurs = false;
    alignas(inotify_event) std::array<char, 16 * (sizeof(inotify_event) + NAME_MAX + 1)> buffer;
    for (ssize_t size = 0; (size = read(m_inotify.get(), buffer.data(), buffer.size())) > 0;) {
        for (ssize_t offset = 0; offset < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + offset);
            offset += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            const auto names = m_names.find(event->wd);
            const bool isKnown = names != m_names.end();
            isAnyOurs = isAnyOurs || (event->mask & IN_Q_OVERFLOW) != 0
                || (isKnown && (event->len == 0 || names->second.contains(QByteArray(event->name))));
        }
    }
    if (!isAnyOurs)
        return;
    watch();
    m_onChange();
}

} // namespace Tarvik
