// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/XdgAutostartLoginItem.h"

#include "base/AtomicFile.h"
#include "platform/linux/applications/DesktopEntry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto entryName = u"/autostart/com.morvanta.Tarvik.desktop"_s;

bool isTrue(const QString& value)
{
    return value == "true"_L1 || value == "1"_L1;
}

bool isFalse(const QString& value)
{
    return value == "false"_L1 || value == "0"_L1;
}

/// A link to nowhere is an entry too: people switch an entry off by linking it to the null device.
bool exists(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

bool starts(const QByteArray& bytes)
{
    const auto keys = DesktopEntry::parse(bytes);
    if (keys.value(u"Type"_s) != "Application"_L1 || keys.value(u"Exec"_s).isEmpty())
        return false;
    if (isTrue(keys.value(u"Hidden"_s)) || isFalse(keys.value(u"X-GNOME-Autostart-enabled"_s))
        || isTrue(keys.value(u"X-LXQt-Autostart-disabled"_s)))
        return false;
    const QString program = DesktopEntry::decoded(keys.value(u"TryExec"_s));
    return program.isEmpty() || !QStandardPaths::findExecutable(program).isEmpty();
}

} // namespace

XdgAutostartLoginItem::XdgAutostartLoginItem(
    QString configHome, QStringList systemConfigDirectories, QStringList command)
    : m_configHome(std::move(configHome))
    , m_systemConfigDirectories(std::move(systemConfigDirectories))
    , m_command(std::move(command))
    , m_watch(entries(), [this] { changed(); })
{
    Q_ASSERT(!m_command.isEmpty());
}

std::optional<QString> XdgAutostartLoginItem::registerItem()
{
    // LXQt starts the entry when it has a tray.
    const auto text = u"[Desktop Entry]\n"
                      u"Type=Application\n"
                      u"Name=Tarvik\n"
                      u"Exec=%1\n"
                      u"TryExec=%2\n"
                      u"Icon=com.morvanta.Tarvik\n"
                      u"X-GNOME-Autostart-enabled=true\n"
                      u"X-LXQt-Need-Tray=true\n"_s;
    return write(text.arg(DesktopEntry::execValue(m_command), DesktopEntry::encoded(m_command.constFirst())).toUtf8());
}

std::optional<QString> XdgAutostartLoginItem::unregisterItem()
{
    if (!systemEntry().isEmpty())
        return write("[Desktop Entry]\nType=Application\nName=Tarvik\nHidden=true\n");
    QFile entry(userEntry());
    if (!exists(userEntry()) || entry.remove())
        return std::nullopt;
    return entry.errorString();
}

bool XdgAutostartLoginItem::isEnabled() const
{
    QFile entry(exists(userEntry()) ? userEntry() : systemEntry());
    return !entry.fileName().isEmpty() && entry.open(QIODevice::ReadOnly) && starts(entry.readAll());
}

QString XdgAutostartLoginItem::userEntry() const
{
    return m_configHome + entryName;
}

QString XdgAutostartLoginItem::systemEntry() const
{
    for (const QString& directory : m_systemConfigDirectories) {
        if (exists(directory + entryName))
            return directory + entryName;
    }
    return {};
}

QStringList XdgAutostartLoginItem::entries() const
{
    QStringList paths{userEntry()};
    for (const QString& directory : m_systemConfigDirectories)
        paths.append(directory + entryName);
    return paths;
}

std::optional<QString> XdgAutostartLoginItem::write(const QByteArray& bytes) const
{
    const QFileInfo entry(userEntry());
    if (!QDir().mkpath(entry.path()))
        return u"The folder “%1” cannot be made."_s.arg(entry.path());
    // A link that was made to switch the entry off must not lead the new one to the null device.
    if (entry.isSymLink() && entry.exists() && !entry.isFile())
        QFile::remove(entry.filePath());
    const auto error = replaceFile(QFile::encodeName(entry.filePath()).toStdString(), bytes.toStdString());
    return error ? std::optional(QString::fromStdString(*error)) : std::nullopt;
}

} // namespace Tarvik
