// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookConfig.h"

#include "core/AtomicFile.h"
#include "core/Logging.h"
#include "hooks/HookEntries.h"
#include "hooks/JsonDocument.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik::HookConfig {

namespace {

QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString filePath(const HookSpec& spec, const QString& home)
{
    return home + u'/' + toQString(spec.configPath);
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
    FileBytes result{.bytes = file.read(maximumBytes + 1), .error = {}};
    return file.error() == QFileDevice::NoError ? result : failure(EIO);
}

Contents parse(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return Missing{};
    if (bytes.size() <= maximumBytes) {
        auto document = JsonDocument::parse({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        if (document && document->object() != nullptr)
            return std::move(*document->object());
    }
    return Invalid{};
}

bool isInvalid(const Contents& contents)
{
    return std::holds_alternative<Invalid>(contents);
}

void logInvalid(const QString& path)
{
    qCCritical(logHooks,
        "hook config at %s is not valid JSON; refusing to touch it",
        qUtf8Printable(QFileInfo(path).fileName()));
}

Contents parseOrLog(const QByteArray& bytes, const QString& path)
{
    Contents contents = parse(bytes);
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
    const auto bytes = JsonDocument::print({std::move(document)}, maximumBytes);
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

Contents read(const HookSpec& spec, const QString& home)
{
    const QString path = filePath(spec, home);
    return parseOrLog(readFile(path).bytes, path);
}

bool install(const HookSpec& spec, const QString& home, const QString& toolPath)
{
    const QString path = filePath(spec, home);
    const FileBytes file = readFile(path);
    Contents contents = parseOrLog(file.bytes, path);
    if (isInvalid(contents))
        return false;
    // Starting from nothing would replace what is only out of sight, such as a file that may be written but not read.
    if (!file.error.isEmpty()) {
        logWriteFailure(spec, file.error);
        return false;
    }
    const auto command = HookEntries::command(toolPath.toStdString(), spec);
    if (!command) {
        logWriteFailure(spec, u"the path of the command-line tool cannot be quoted for a shell: "_s + toolPath);
        return false;
    }

    auto* existing = std::get_if<JsonValue::Object>(&contents);
    JsonValue::Object document = existing != nullptr ? std::move(*existing) : JsonValue::Object{};
    HookEntries::add(spec, *command, document);
    return write(spec, path, std::move(document));
}

bool uninstall(const HookSpec& spec, const QString& home)
{
    Contents contents = read(spec, home);
    auto* document = std::get_if<JsonValue::Object>(&contents);
    if (document == nullptr)
        return std::holds_alternative<Missing>(contents);
    HookEntries::remove(spec, *document);
    return write(spec, filePath(spec, home), std::move(*document));
}

void refreshOutdated(const QString& home, const QString& toolPath)
{
    for (const HookSpec& spec : HookSpec::all) {
        const Contents contents = read(spec, home);
        const auto* document = std::get_if<JsonValue::Object>(&contents);
        if (document == nullptr || !HookEntries::isOutdated(spec, *document, toolPath.toStdString()))
            continue;
        qCInfo(logHooks, "hook config out of date for %s; rewriting", qUtf8Printable(toQString(spec.id)));
        // A failure has been logged; the entries stay as they are until the next start.
        (void)install(spec, home, toolPath);
    }
}

QSet<QString> installedIds(const QString& home)
{
    QSet<QString> invalidIds;
    return installedIds(home, invalidIds);
}

QSet<QString> installedIds(const QString& home, QSet<QString>& invalidIds)
{
    QSet<QString> ids;
    const QSet<QString> knownInvalidIds = std::exchange(invalidIds, {});
    for (const HookSpec& spec : HookSpec::all) {
        const QString id = toQString(spec.id);
        const QString path = filePath(spec, home);
        const Contents contents = parse(readFile(path).bytes);
        if (isInvalid(contents)) {
            invalidIds.insert(id);
            if (!knownInvalidIds.contains(id))
                logInvalid(path);
        }
        const auto* document = std::get_if<JsonValue::Object>(&contents);
        if (document != nullptr && HookEntries::isInstalled(spec, *document))
            ids.insert(id);
    }
    return ids;
}

} // namespace Tarvik::HookConfig
