// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopFiles.h"

#include "base/Releaser.h"

#include <QDir>
#include <QDirIterator>

#include <gio/gdesktopappinfo.h>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr auto suffix = ".desktop"_L1;
/// More than anybody runs; ids come from windows and units, which anything may create.
constexpr qsizetype maximumNames = 256;

using DesktopFile = Owned<GDesktopAppInfo, g_object_unref>;

DesktopFile readDesktopFile(const QString& fileId)
{
    return DesktopFile(g_desktop_app_info_new(fileId.toUtf8().constData()));
}

} // namespace

class DesktopFiles::Monitor {
public:
    explicit Monitor(DesktopFiles& files)
        : m_monitor(g_app_info_monitor_get())
        , m_handler(g_signal_connect_swapped(
              m_monitor.get(), "changed", G_CALLBACK(+[](DesktopFiles* owner) { owner->forget(); }), &files))
    {
    }
    ~Monitor() { g_signal_handler_disconnect(m_monitor.get(), m_handler); }

    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

private:
    Owned<GAppInfoMonitor, g_object_unref> m_monitor;
    gulong m_handler;
};

DesktopFiles::DesktopFiles()
    : m_monitor(std::make_unique<Monitor>(*this))
{
}

DesktopFiles::~DesktopFiles() = default;

std::optional<QString> DesktopFiles::name(const QString& id)
{
    if (id.isEmpty() || id.contains(u'/') || id.contains(QChar::Null))
        return std::nullopt;
    if (const auto known = m_names.constFind(id); known != m_names.cend())
        return *known;
    if (m_names.size() >= maximumNames)
        m_names.clear();

    const DesktopFile info = readDesktopFile(id + suffix);
    std::optional<QString> found;
    if (info != nullptr)
        found = QString::fromUtf8(g_app_info_get_display_name(G_APP_INFO(info.get())));
    m_names.insert(id, found);
    return found;
}

std::optional<QString> DesktopFiles::idForWindow(const QStringList& classes)
{
    for (const QString& name : classes) {
        if (const auto id = idForStartupClass(name); !name.isEmpty() && id)
            return id;
    }
    for (const QString& name : classes) {
        for (const QString& id : {name, name.toLower().replace(u' ', u'-')}) {
            if (this->name(id))
                return id;
        }
    }
    return std::nullopt;
}

std::optional<QString> DesktopFiles::idForStartupClass(const QString& windowClass)
{
    if (!m_startupClasses)
        readStartupClasses();
    const auto found = m_startupClasses->constFind(windowClass);
    return found == m_startupClasses->cend() ? std::nullopt : std::optional(*found);
}

void DesktopFiles::readStartupClasses()
{
    m_startupClasses.emplace();
    QStringList directories{QString::fromUtf8(g_get_user_data_dir())};
    for (const char* const* directory = g_get_system_data_dirs(); *directory != nullptr; ++directory)
        directories.append(QString::fromUtf8(*directory));
    for (const QString& directory : std::as_const(directories)) {
        const QDir applications(directory + u"/applications"_s);
        QDirIterator files(applications.path(), {u"*.desktop"_s}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QString id = applications.relativeFilePath(files.next()).replace(u'/', u'-');
            // One after the other: all of them at once, as GIO lists them, would leave their memory with the process.
            const auto info = readDesktopFile(id);
            const char* startupClass = info != nullptr ? g_desktop_app_info_get_startup_wm_class(info.get()) : nullptr;
            if (startupClass == nullptr)
                continue;
            id.chop(suffix.size());
            const QString name = QString::fromUtf8(startupClass);
            // Several files may claim a class: the one that is named like it is the application's main one.
            if (!m_startupClasses->contains(name) || id == name)
                m_startupClasses->insert(name, id);
        }
    }
}

void DesktopFiles::forget()
{
    m_names.clear();
    m_startupClasses.reset();
    changed();
}

} // namespace Tarvik
