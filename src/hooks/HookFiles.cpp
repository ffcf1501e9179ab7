// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookFiles.h"

#include "core/AtomicFile.h"
#include "core/Logging.h"
#include "hooks/HookEntries.h"
#include "hooks/JsonDocument.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>
#include <system_error>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// A file may change again within the same tick of the clock that its time is taken from.
constexpr std::chrono::seconds longestTick{2};

QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// What could be read of a file, up to one byte beyond the maximum. Neither bytes nor error: there is none, or it is
/// empty.
struct FileBytes {
    QByteArray bytes;
    QString error;
};

FileBytes failure(int code)
{
    return {.bytes = {}, .error = QString::fromStdString(std::generic_category().message(code))};
}

FileBytes readFile(const QString& path)
{
    // Whatever lies there, opening it must not wait for a writer on the other end or take over a terminal.
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return errno == ENOENT ? FileBytes() : failure(errno);
    QFile file;
    struct stat status = {};
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)
        || fstat(descriptor, &status) != 0)
        return failure(errno);
    if (!S_ISREG(status.st_mode))
        return {.bytes = {}, .error = u"Not a regular file"_s};
    FileBytes result{.bytes = file.read(HookFiles::maximumBytes + 1), .error = {}};
    return file.error() == QFileDevice::NoError ? result : failure(EIO);
}

HookFiles::Contents parse(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return HookFiles::Missing{};
    if (bytes.size() <= HookFiles::maximumBytes) {
        auto document = JsonDocument::parse({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        if (document && document->object() != nullptr)
            return std::move(*document->object());
    }
    return HookFiles::Invalid{};
}

bool isInvalid(const HookFiles::Contents& contents)
{
    return std::holds_alternative<HookFiles::Invalid>(contents);
}

void logInvalid(const QString& path)
{
    qCCritical(logHooks,
        "hook config at %s is not valid JSON; refusing to touch it",
        qUtf8Printable(QFileInfo(path).fileName()));
}

HookFiles::Contents parseOrLog(const QByteArray& bytes, const QString& path)
{
    HookFiles::Contents contents = parse(bytes);
    if (isInvalid(contents))
        logInvalid(path);
    return contents;
}

void logWriteFailure(const HookSpec& spec, const QString& error)
{
    qCCritical(
        logHooks, "could not write hook config for %s: %s", qUtf8Printable(toQString(spec.id)), qUtf8Printable(error));
}

/// Returns what went wrong, for people, or nothing.
std::optional<QString> tryToWrite(const QString& path, JsonValue::Object document)
{
    const auto bytes = JsonDocument::print({std::move(document)}, HookFiles::maximumBytes);
    if (!bytes)
        return u"the file would become too large"_s;
    // Only the path's own directories: where a link leads to a place that is gone, such as a disk that is not there at
    // the moment, nothing is created in its stead.
    std::error_code problem;
    std::filesystem::create_directories(QFile::encodeName(QFileInfo(path).path()).toStdString(), problem);
    if (problem)
        return QString::fromStdString(problem.message());
    return replaceFile(path, QByteArray::fromStdString(*bytes));
}

bool write(const HookSpec& spec, const QString& path, JsonValue::Object document)
{
    const auto error = tryToWrite(path, std::move(document));
    if (error)
        logWriteFailure(spec, *error);
    return !error;
}

} // namespace

std::optional<HookFiles::Version> HookFiles::Version::of(const QString& path)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return Version{.device = status.st_dev,
        .inode = status.st_ino,
        .size = status.st_size,
        .modified = status.st_mtim,
        .changed = status.st_ctim};
}

bool HookFiles::Version::isSettled() const
{
    const auto age = std::chrono::system_clock::now() - std::chrono::system_clock::from_time_t(changed.tv_sec);
    return age > longestTick;
}

bool HookFiles::Version::operator==(const Version& other) const
{
    const auto key = [](const Version& version) {
        return std::tuple(version.device,
            version.inode,
            version.size,
            version.modified.tv_sec,
            version.modified.tv_nsec,
            version.changed.tv_sec,
            version.changed.tv_nsec);
    };
    return key(*this) == key(other);
}

HookFiles::HookFiles(QString home, QString toolPath)
    : m_home(std::move(home))
    , m_toolPath(std::move(toolPath))
{
}

QString HookFiles::filePath(const HookSpec& spec) const
{
    return m_home + u'/' + toQString(spec.configPath);
}

HookFiles::Contents HookFiles::read(const HookSpec& spec) const
{
    const QString path = filePath(spec);
    return parseOrLog(readFile(path).bytes, path);
}

bool HookFiles::install(const HookSpec& spec) const
{
    const QString path = filePath(spec);
    const FileBytes file = readFile(path);
    Contents contents = parseOrLog(file.bytes, path);
    if (isInvalid(contents))
        return false;
    // Starting from nothing would replace what is only out of sight, such as a file that may be written but not read.
    if (!file.error.isEmpty()) {
        logWriteFailure(spec, file.error);
        return false;
    }
    const auto command = HookEntries::command(m_toolPath.toStdString(), spec);
    if (!command) {
        logWriteFailure(spec, u"the path of the command-line tool cannot be quoted for a shell: "_s + m_toolPath);
        return false;
    }

    auto* existing = std::get_if<JsonValue::Object>(&contents);
    JsonValue::Object document = existing != nullptr ? std::move(*existing) : JsonValue::Object{};
    HookEntries::add(spec, *command, document);
    return write(spec, path, std::move(document));
}

bool HookFiles::uninstall(const HookSpec& spec) const
{
    Contents contents = read(spec);
    auto* document = std::get_if<JsonValue::Object>(&contents);
    if (document == nullptr)
        return std::holds_alternative<Missing>(contents);
    HookEntries::remove(spec, *document);
    return write(spec, filePath(spec), std::move(*document));
}

void HookFiles::refreshOutdated() const
{
    for (const HookSpec& spec : HookSpec::all) {
        const Contents contents = read(spec);
        const auto* document = std::get_if<JsonValue::Object>(&contents);
        if (document == nullptr || !HookEntries::isOutdated(spec, *document, m_toolPath.toStdString()))
            continue;
        qCInfo(logHooks, "hook config out of date for %s; rewriting", qUtf8Printable(toQString(spec.id)));
        // A failure has been logged; the entries stay as they are until the next start.
        (void)install(spec);
    }
}

QSet<QString> HookFiles::installedIds()
{
    QSet<QString> ids;
    for (std::size_t index = 0; index < HookSpec::all.size(); ++index) {
        const HookSpec& spec = HookSpec::all[index];
        look(spec, m_findings[index]);
        if (m_findings[index].isInstalled)
            ids.insert(toQString(spec.id));
    }
    return ids;
}

void HookFiles::look(const HookSpec& spec, Finding& finding) const
{
    const QString path = filePath(spec);
    // Before the file is read: what changes meanwhile is a change.
    const auto version = Version::of(path);
    if (version && version == finding.version)
        return;
    const Contents contents = parse(readFile(path).bytes);
    const bool wasInvalid = finding.isInvalid;
    const auto* document = std::get_if<JsonValue::Object>(&contents);
    finding = {.version = version && version->isSettled() ? version : std::nullopt,
        .isInvalid = isInvalid(contents),
        .isInstalled = document != nullptr && HookEntries::isInstalled(spec, *document)};
    if (finding.isInvalid && !wasInvalid)
        logInvalid(path);
}

} // namespace Tarvik
