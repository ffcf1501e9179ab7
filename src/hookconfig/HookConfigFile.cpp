// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hookconfig/HookConfigFile.h"

#include "base/AtomicFile.h"
#include "base/FileDescriptor.h"
#include "hookconfig/JsonDocument.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

namespace Tarvik {

namespace {

/// What could be read of a file, and no more than shows that it is too large. Neither bytes nor error: there is none,
/// or it is empty.
struct FileBytes {
    std::string bytes;
    std::string error;
};

FileBytes failure(int code)
{
    return {.bytes = {}, .error = std::generic_category().message(code)};
}

FileBytes readFile(const std::string& path)
{
    // Whatever lies there, opening it must not wait for a writer on the other end or take over a terminal.
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isValid())
        return errno == ENOENT ? FileBytes() : failure(errno);
    struct stat status = {};
    if (fstat(file.get(), &status) != 0)
        return failure(errno);
    if (!S_ISREG(status.st_mode))
        return {.bytes = {}, .error = "Not a regular file"};
    FileBytes result;
    std::array<char, std::size_t(16) * 1024> chunk;
    while (result.bytes.size() <= HookConfigFile::maximumBytes) {
        const ssize_t count = ::read(file.get(), chunk.data(), chunk.size());
        if (count == 0)
            break;
        if (count > 0)
            result.bytes.append(chunk.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return failure(errno);
    }
    return result;
}

HookConfigFile::Contents parse(std::string_view bytes)
{
    if (bytes.empty())
        return HookConfigFile::Missing{};
    if (bytes.size() <= HookConfigFile::maximumBytes) {
        auto document = JsonDocument::parse(bytes);
        if (document && document->object() != nullptr)
            return std::move(*document->object());
    }
    return HookConfigFile::Invalid{};
}

} // namespace

HookConfigFile::HookConfigFile(std::string path)
    : m_path(std::move(path))
{
}

HookConfigFile::Reading HookConfigFile::read() const
{
    FileBytes file = readFile(m_path);
    return {.contents = parse(file.bytes), .error = std::move(file.error)};
}

std::optional<std::string> HookConfigFile::write(JsonValue::Object document) const
{
    const auto bytes = JsonDocument::print({std::move(document)}, maximumBytes);
    if (!bytes)
        return "the file would become too large";
    // Only the path's own directories: where a link leads to a place that is gone, such as a disk that is not there at
    // the moment, nothing is created in its stead.
    std::error_code problem;
    std::filesystem::create_directories(std::filesystem::path(m_path).parent_path(), problem);
    if (problem)
        return problem.message();
    return replaceFile(m_path, *bytes);
}

} // namespace Tarvik
