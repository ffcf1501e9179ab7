// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/AtomicFile.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace Tarvik {

namespace {

using Path = std::filesystem::path;

constexpr int maximumLinks = 40;
constexpr int maximumNameAttempts = 16;
constexpr mode_t permissionBits = 07777;
/// The kernel's own limit, for one value and for all names together.
constexpr std::size_t maximumAttributeBytes = std::size_t(64) * 1024;
constexpr auto accessList = "system.posix_acl_access";

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

/// One of the attributes of a file, see xattr(7); nothing when it has none of that name.
std::optional<std::string> attribute(const Path& path, const std::string& name)
{
    std::string value(maximumAttributeBytes, '\0');
    const ssize_t size = lgetxattr(path.c_str(), name.c_str(), value.data(), value.size());
    if (size < 0)
        return {};
    value.resize(static_cast<std::size_t>(size));
    return value;
}

/// Their names; none where the file system knows of no attributes.
std::vector<std::string> attributeNames(const Path& path)
{
    std::string list(maximumAttributeBytes, '\0');
    const ssize_t size = llistxattr(path.c_str(), list.data(), list.size());
    std::vector<std::string> names;
    for (std::string_view rest(list.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))); !rest.empty();) {
        names.emplace_back(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(std::min(names.back().size() + 1, rest.size()));
    }
    return names;
}

/// A new file beside the target that takes its place, or is gone when this object is. On failure the operations return
/// false and errno says why.
class TemporaryFile {
public:
    explicit TemporaryFile(Path directory)
        : m_directory(std::move(directory))
    {
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    ~TemporaryFile()
    {
        const int cause = errno;
        m_file.reset();
        if (!m_path.empty())
            unlink(m_path.c_str());
        errno = cause;
    }

    bool create(mode_t mode)
    {
        // Without a name where the file system has that: if this process is killed, nothing is left behind.
        m_file.reset(open(m_directory.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, mode));
        return m_file.isValid() || findName([this, mode](const Path& path) {
            m_file.reset(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
            return m_file.isValid();
        });
    }

    /// The owner, the group, the permissions and what else is attached to the original.
    bool adoptPermissions(const Path& path, const struct stat& original) const
    {
        struct stat own = {};
        if (fstat(m_file.get(), &own) != 0)
            return false;
        const bool isOwnedAlike = own.st_uid == original.st_uid && own.st_gid == original.st_gid;
        if (!isOwnedAlike && fchown(m_file.get(), original.st_uid, original.st_gid) != 0)
            return false;
        // The directory may have given the new file a list. With a list, the group's bits of the mode are no longer
        // the group's own permissions, acl(5): as long as the lists differ, so would what the same mode allows.
        fremovexattr(m_file.get(), accessList);
        return adoptAttributes(path) && fchmod(m_file.get(), original.st_mode & permissionBits) == 0;
    }

    bool write(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const ssize_t count = ::write(m_file.get(), bytes.data(), bytes.size());
            if (count < 0 && errno != EINTR)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        }
        return true;
    }

    bool flush() const { return fsync(m_file.get()) == 0; }

    bool takePlaceOf(const Path& target)
    {
        // A file can get a name, but not one that is taken.
        const std::string unnamed = "/proc/self/fd/" + std::to_string(m_file.get());
        const bool isNamed = !m_path.empty() || findName([&unnamed](const Path& path) {
            return linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) == 0;
        });
        // Network file systems report some write errors only here.
        if (!isNamed || close(m_file.release()) != 0 || rename(m_path.c_str(), target.c_str()) != 0)
            return false;
        m_path.clear();
        return true;
    }

private:
    /// Tries names until `use` has made one of them the file's.
    bool findName(const std::function<bool(const Path& path)>& use)
    {
        for (int attempt = 0; attempt < maximumNameAttempts; ++attempt) {
            std::uint64_t random = 0;
            // Without a random number, in the first moments after the system's start, the names are just others.
            [[maybe_unused]] const ssize_t count = getrandom(&random, sizeof(random), GRND_NONBLOCK);
            const Path path = m_directory / (".tarvik-" + std::to_string(random + static_cast<unsigned>(attempt)));
            if (use(path)) {
                m_path = path;
                return true;
            }
            if (errno != EEXIST)
                return false;
        }
        return false;
    }

    bool adoptAttributes(const Path& path) const
    {
        for (const std::string& name : attributeNames(path)) {
            // The others, labels of the security policy and the like, are not ours to give.
            const bool isNeeded = name == accessList || name.starts_with("user.");
            const auto value = attribute(path, name);
            const bool isAdopted = value && fsetxattr(m_file.get(), name.c_str(), value->data(), value->size(), 0) == 0;
            if (isNeeded && !isAdopted)
                return false;
        }
        return true;
    }

    Path m_directory;
    Path m_path;
    FileDescriptor m_file;
};

/// Not every file system can do this, and the new file is in place already, so failure is no error.
void flushDirectory(const Path& directory)
{
    const FileDescriptor descriptor(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isValid())
        fsync(descriptor.get());
}

bool replace(const Path& path, std::string_view bytes, mode_t newFileMode)
{
    const auto target = followLinks(path);
    if (!target)
        return false;
    const auto original = statusWithoutFollowing(*target);
    if (!original || (exists(*original) && !isReplaceable(*target, *original)))
        return false;

    const Path directory = target->has_parent_path() ? target->parent_path() : Path(".");
    TemporaryFile successor(directory);
    // What is secret in the original must not be readable for a moment in its successor. Its permissions come after the
    // bytes, since writing takes some of them away, write(2).
    if (!successor.create(exists(*original) ? S_IRUSR | S_IWUSR : newFileMode) || !successor.write(bytes)
        || (exists(*original) && !successor.adoptPermissions(*target, *original)) || !successor.flush()
        || !successor.takePlaceOf(*target))
        return false;
    flushDirectory(directory);
    return true;
}

} // namespace

std::optional<std::string> replaceFile(const std::string& path, std::string_view bytes, mode_t newFileMode)
{
    if (replace(path, bytes, newFileMode))
        return {};
    return std::generic_category().message(errno);
}

} // namespace Tarvik
