// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/AtomicFile.h"

#include <QFile>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace Tarvik {

namespace {

using Path = std::filesystem::path;

constexpr int maximumLinks = 40;
constexpr int maximumNameAttempts = 16;
constexpr mode_t permissionBits = 07777;

/// What lstat(2) says; a mode of zero when there is nothing.
std::optional<struct stat> statusWithoutFollowing(const Path& path)
{
    struct stat status = {};
    if (lstat(path.c_str(), &status) == 0 || errno == ENOENT)
        return status;
    return {};
}

bool exists(const struct stat& status)
{
    return status.st_mode != 0;
}

/// The path at the end of a chain of links; nothing has to exist there. Links among the directories are left to the
/// kernel, which also gives ".." behind them its meaning.
std::optional<Path> followLinks(Path path)
{
    for (int link = 0; link < maximumLinks; ++link) {
        const auto status = statusWithoutFollowing(path);
        if (!status)
            return {};
        if (!S_ISLNK(status->st_mode))
            return path;
        std::error_code error;
        const Path destination = std::filesystem::read_symlink(path, error);
        if (error) {
            errno = error.value();
            return {};
        }
        path = path.parent_path() / destination;
    }
    errno = ELOOP;
    return {};
}

bool isReplaceable(const Path& path, const struct stat& status)
{
    // A rename would silently put an ordinary file in the place of a device, a socket or a named pipe.
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
        return false;
    }
    // The directory's permissions would allow a rename over a file that its owner has protected.
    return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

/// A new file beside the target that takes its place, or is gone when this object is. On failure the operations return
/// false and errno says why.
class TemporaryFile {
public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile()
    {
        const int cause = errno;
        if (m_descriptor >= 0)
            close(m_descriptor);
        if (!m_path.empty())
            unlink(m_path.c_str());
        errno = cause;
    }

    bool create(const Path& directory, mode_t mode)
    {
        for (int attempt = 0; attempt < maximumNameAttempts; ++attempt) {
            const Path path = directory / (".tarvik-" + std::to_string(QRandomGenerator::global()->generate64()));
            m_descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
            if (m_descriptor >= 0) {
                m_path = path;
                return true;
            }
            if (errno != EEXIST)
                return false;
        }
        return false;
    }

    bool adoptPermissions(const struct stat& original) const
    {
        struct stat own = {};
        if (fstat(m_descriptor, &own) != 0)
            return false;
        const bool isOwnedAlike = own.st_uid == original.st_uid && own.st_gid == original.st_gid;
        return (isOwnedAlike || fchown(m_descriptor, original.st_uid, original.st_gid) == 0)
            && fchmod(m_descriptor, original.st_mode & permissionBits) == 0;
    }

    bool write(const QByteArray& bytes) const
    {
        qsizetype written = 0;
        while (written < bytes.size()) {
            const auto left = static_cast<size_t>(bytes.size() - written);
            const ssize_t count = ::write(m_descriptor, bytes.constData() + written, left);
            if (count < 0 && errno != EINTR)
                return false;
            written += std::max<ssize_t>(count, 0);
        }
        return true;
    }

    bool flush() const { return fsync(m_descriptor) == 0; }

    bool takePlaceOf(const Path& target)
    {
        // Network file systems report some write errors only here.
        if (close(std::exchange(m_descriptor, -1)) != 0 || rename(m_path.c_str(), target.c_str()) != 0)
            return false;
        m_path.clear();
        return true;
    }

private:
    Path m_path;
    int m_descriptor = -1;
};

/// Not every file system can do this, and the new file is in place already, so failure is no error.
void flushDirectory(const Path& directory)
{
    const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

bool replace(const Path& path, const QByteArray& bytes, mode_t newFileMode)
{
    const auto target = followLinks(path);
    if (!target)
        return false;
    const auto original = statusWithoutFollowing(*target);
    if (!original || (exists(*original) && !isReplaceable(*target, *original)))
        return false;

    const Path directory = target->has_parent_path() ? target->parent_path() : Path(".");
    TemporaryFile successor;
    // What is secret in the original must not be readable for a moment in its successor. Its permissions come after the
    // bytes, since writing takes some of them away, write(2).
    if (!successor.create(directory, exists(*original) ? S_IRUSR | S_IWUSR : newFileMode) || !successor.write(bytes)
        || (exists(*original) && !successor.adoptPermissions(*original)) || !successor.flush()
        || !successor.takePlaceOf(*target))
        return false;
    flushDirectory(directory);
    return true;
}

} // namespace

std::optional<QString> replaceFile(const QString& path, const QByteArray& bytes, mode_t newFileMode)
{
    if (replace(QFile::encodeName(path).toStdString(), bytes, newFileMode))
        return {};
    return QString::fromStdString(std::generic_category().message(errno));
}

} // namespace Tarvik
