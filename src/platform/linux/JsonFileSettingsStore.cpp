// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/JsonFileSettingsStore.h"

#include "base/AtomicFile.h"
#include "core/Logging.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// Settings and 200 journal entries take some tens of kilobytes; whatever is this long is something else.
constexpr qint64 maximumBytes = qint64{16} * 1024 * 1024;
constexpr auto dataMember = "data"_L1;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

/// Left by a process that was killed in the middle of a write.
void removeUnfinishedFiles(const QString& directory)
{
    for (const QString& name : QDir(directory).entryList({u".tarvik-*"_s}, QDir::Files | QDir::Hidden))
        QFile::remove(directory + u'/' + name);
}

/// What a file says.
struct Content {
    /// Nothing when there is no file.
    std::optional<QJsonObject> values = {};
    /// Why it cannot be read; empty when it can.
    QString error = {};
    bool isEmpty = false;
};

Content readContent(const QString& path)
{
    // A named pipe must not make us wait for its other end.
    const FileDescriptor descriptor(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!descriptor.isValid())
        return errno == ENOENT ? Content{} : Content{.error = systemError()};
    struct stat status = {};
    if (fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return {.error = u"not a regular file"_s};
    if (status.st_size > maximumBytes)
        return {.error = u"too large"_s};
    QFile file;
    if (!file.open(descriptor.get(), QIODevice::ReadOnly))
        return {.error = file.errorString()};
    const QByteArray bytes = file.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (document.isObject())
        return {.values = document.object()};
    return {.error = error.error == QJsonParseError::NoError ? u"not a JSON object"_s : error.errorString(),
        .isEmpty = bytes.isEmpty()};
}

QString unusedName(const QString& path)
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss"_s);
    QString name = path + u".unreadable-"_s + stamp;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = path + u".unreadable-"_s + stamp + u'-' + QString::number(number);
    return name;
}

} // namespace

JsonFileSettingsStore::JsonFileSettingsStore(const QString& path)
    : m_path(path)
{
    const QString directory = QFileInfo(path).path();
    QDir().mkpath(QFileInfo(directory).path());
    QDir().mkdir(directory, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (lock()) {
        removeUnfinishedFiles(directory);
        m_watch.emplace(QStringList{m_path}, [this] { follow(); });
    } else {
        m_mayWrite = false;
        qCWarning(
            logSettings, "%s is in use by another Tarvik; changes are kept in memory only", qUtf8Printable(m_path));
    }
    load();
}

bool JsonFileSettingsStore::lock()
{
    const QByteArray path = QFile::encodeName(m_path + u".lock"_s);
    m_lock = FileDescriptor(open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    // Where no lock file can be made, writing will fail as well and say why.
    return !m_lock.isValid() || flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

std::optional<JsonFileSettingsStore::Version> JsonFileSettingsStore::currentVersion() const
{
    struct stat status = {};
    if (stat(QFile::encodeName(m_path).constData(), &status) != 0)
        return {};
    return Version{.inode = status.st_ino,
        .size = status.st_size,
        .seconds = status.st_mtim.tv_sec,
        .nanoseconds = status.st_mtim.tv_nsec};
}

void JsonFileSettingsStore::load()
{
    m_version = currentVersion();
    const Content content = readContent(m_path);
    if (!content.error.isEmpty())
        setAside(content.error);
    else if (content.values)
        m_values = *content.values;
}

void JsonFileSettingsStore::follow()
{
    const auto version = currentVersion();
    if (!version || version == m_version)
        return;
    const Content content = readContent(m_path);
    // A file that is about to be written anew is empty first.
    if (!content.error.isEmpty() && !content.isEmpty) {
        qCWarning(logSettings,
            "%s cannot be read (%s); the settings stay as they are",
            qUtf8Printable(m_path),
            qUtf8Printable(content.error));
    }
    if (!content.values)
        return;
    m_version = version;
    m_mayWrite = true;
    if (std::exchange(m_values, *content.values) != *content.values)
        changed();
}

void JsonFileSettingsStore::setAside(const QString& why)
{
    const QString shown = QFileInfo(m_path).isSymLink() ? QFileInfo(m_path).symLinkTarget() : m_path;
    const QString aside = unusedName(shown);
    if (m_mayWrite && std::rename(QFile::encodeName(shown).constData(), QFile::encodeName(aside).constData()) == 0) {
        m_version.reset();
        qCWarning(logSettings,
            "%s cannot be read (%s); it is kept as %s",
            qUtf8Printable(m_path),
            qUtf8Printable(why),
            qUtf8Printable(aside));
        return;
    }
    m_mayWrite = false;
    qCWarning(logSettings,
        "%s cannot be read (%s) and is left as it is; changes are kept in memory only",
        qUtf8Printable(m_path),
        qUtf8Printable(why));
}

bool JsonFileSettingsStore::contains(const QString& key) const
{
    return m_values.contains(key);
}

std::optional<bool> JsonFileSettingsStore::boolean(const QString& key) const
{
    const QJsonValue value = m_values[key];
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<qint64> JsonFileSettingsStore::integer(const QString& key) const
{
    const QJsonValue value = m_values[key];
    // Anything but an integer, such as 20.5, yields the fallback, and no number equals two of them.
    const bool isInteger = value.isDouble() && value.toInteger(0) == value.toInteger(1);
    return isInteger ? std::optional(value.toInteger()) : std::nullopt;
}

std::optional<QString> JsonFileSettingsStore::string(const QString& key) const
{
    const QJsonValue value = m_values[key];
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QByteArray> JsonFileSettingsStore::data(const QString& key) const
{
    const QJsonValue encoded = m_values[key][dataMember];
    if (!encoded.isString())
        return {};
    const auto decoded
        = QByteArray::fromBase64Encoding(encoded.toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(*decoded) : std::nullopt;
}

void JsonFileSettingsStore::setBoolean(const QString& key, bool value)
{
    set(key, value);
}

void JsonFileSettingsStore::setInteger(const QString& key, qint64 value)
{
    set(key, value);
}

void JsonFileSettingsStore::setString(const QString& key, const QString& value)
{
    set(key, value);
}

void JsonFileSettingsStore::setData(const QString& key, const QByteArray& value)
{
    set(key, QJsonObject{{dataMember, QString::fromLatin1(value.toBase64())}});
}

void JsonFileSettingsStore::set(const QString& key, const QJsonValue& value)
{
    // Somebody edited the file by hand: what they wrote is kept, except for this key.
    const auto version = currentVersion();
    const QJsonObject known = m_values;
    if (m_mayWrite && version && version != m_version)
        load();
    const bool isEdited = m_values != known;
    m_values[key] = value;
    if (m_mayWrite)
        write();
    if (isEdited)
        changed();
}

void JsonFileSettingsStore::write()
{
    const std::string json = QJsonDocument(m_values).toJson(QJsonDocument::Indented).toStdString();
    const auto error = replaceFile(QFile::encodeName(m_path).toStdString(), json, 0600);
    if (error && *error != m_lastError)
        qCWarning(logSettings, "%s cannot be written: %s", qUtf8Printable(m_path), error->c_str());
    if (!error)
        m_version = currentVersion();
    m_lastError = error.value_or(std::string());
}

} // namespace Tarvik
