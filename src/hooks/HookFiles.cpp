// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookFiles.h"

#include "core/Logging.h"
#include "hookconfig/HookEntries.h"
#include "hookconfig/JsonValue.h"

#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <variant>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// A file may change again within the same tick of the clock that its time is taken from.
constexpr std::chrono::seconds longestTick{2};

QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool isInvalid(const HookConfigFile::Contents& contents)
{
    return std::holds_alternative<HookConfigFile::Invalid>(contents);
}

void logInvalid(const QString& path)
{
    qCCritical(logHooks,
        "hook config at %s is not valid JSON; refusing to touch it",
        qUtf8Printable(QFileInfo(path).fileName()));
}

void logWriteFailure(const HookSpec& spec, const std::string& error)
{
    qCCritical(logHooks, "could not write hook config for %s: %s", qUtf8Printable(toQString(spec.id)), error.c_str());
}

bool write(const HookSpec& spec, const HookConfigFile& file, JsonValue::Object document)
{
    const auto error = file.write(std::move(document));
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

HookConfigFile HookFiles::file(const HookSpec& spec) const
{
    return HookConfigFile(QFile::encodeName(filePath(spec)).toStdString());
}

HookConfigFile::Reading HookFiles::readOrLog(const HookSpec& spec) const
{
    HookConfigFile::Reading reading = file(spec).read();
    if (isInvalid(reading.contents))
        logInvalid(filePath(spec));
    return reading;
}

HookConfigFile::Contents HookFiles::read(const HookSpec& spec) const
{
    return readOrLog(spec).contents;
}

bool HookFiles::install(const HookSpec& spec) const
{
    HookConfigFile::Reading reading = readOrLog(spec);
    if (isInvalid(reading.contents))
        return false;
    // Starting from nothing would replace what is only out of sight, such as a file that may be written but not read.
    if (!reading.error.empty()) {
        logWriteFailure(spec, reading.error);
        return false;
    }
    const std::string toolPath = m_toolPath.toStdString();
    const auto command = HookEntries::command(toolPath, spec);
    if (!command) {
        logWriteFailure(spec, "the path of the command-line tool cannot be quoted for a shell: " + toolPath);
        return false;
    }

    auto* existing = std::get_if<JsonValue::Object>(&reading.contents);
    JsonValue::Object document = existing != nullptr ? std::move(*existing) : JsonValue::Object{};
    HookEntries::add(spec, *command, document);
    return write(spec, file(spec), std::move(document));
}

bool HookFiles::uninstall(const HookSpec& spec) const
{
    HookConfigFile::Contents contents = read(spec);
    auto* document = std::get_if<JsonValue::Object>(&contents);
    if (document == nullptr)
        return std::holds_alternative<HookConfigFile::Missing>(contents);
    HookEntries::remove(spec, *document);
    return write(spec, file(spec), std::move(*document));
}

void HookFiles::refreshOutdated() const
{
    for (const HookSpec& spec : HookSpec::all) {
        const HookConfigFile::Contents contents = read(spec);
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
    const HookConfigFile::Contents contents = file(spec).read().contents;
    const bool wasInvalid = finding.isInvalid;
    const auto* document = std::get_if<JsonValue::Object>(&contents);
    finding = {.version = version && version->isSettled() ? version : std::nullopt,
        .isInvalid = isInvalid(contents),
        .isInstalled = document != nullptr && HookEntries::isInstalled(spec, *document)};
    if (finding.isInvalid && !wasInvalid)
        logInvalid(path);
}

} // namespace Tarvik
