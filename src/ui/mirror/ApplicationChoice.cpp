// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/ApplicationChoice.h"

#include "dbus/BusNames.h"
#include "dbus/DBusProperties.h"
#include "ui/mirror/FileFilter.h"
#include "ui/mirror/SettingsMirror.h"

#include <QCollator>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QLocale>
#include <QUrl>
#include <QWindow>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto chooserInterface = u"org.freedesktop.portal.FileChooser"_s;

/// Numbers by their value, letters without regard to case.
QCollator nameOrder()
{
    // The collation of the C locale knows neither.
    const QLocale locale;
    QCollator order(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    return order;
}

QVariantList rowsOf(QList<InstalledApplication> applications, const QStringList& runningIds)
{
    const QCollator order = nameOrder();
    const auto isRunning = [&](const InstalledApplication& each) { return runningIds.contains(each.bundleID); };
    std::ranges::sort(applications, [&](const InstalledApplication& left, const InstalledApplication& right) {
        if (isRunning(left) != isRunning(right))
            return isRunning(left);
        const int byName = order.compare(left.name, right.name);
        return byName != 0 ? byName < 0 : left.bundleID < right.bundleID;
    });
    QHash<QString, int> bearers;
    for (const InstalledApplication& each : std::as_const(applications))
        ++bearers[each.name.toCaseFolded()];
    QVariantList rows;
    for (const InstalledApplication& each : std::as_const(applications)) {
        QStringList caption;
        if (isRunning(each))
            caption.append(QCoreApplication::translate("ApplicationChoice", "Open now"));
        if (bearers[each.name.toCaseFolded()] > 1)
            caption.append(each.bundleID);
        rows.append(QVariantMap{{u"bundleID"_s, each.bundleID},
            {u"name"_s, each.name},
            {u"icon"_s, each.icon},
            {u"caption"_s, caption.join(u" · "_s)}});
    }
    return rows;
}

/// How the portal is told whose dialog it is; empty where a window has no name for others.
QString focusedWindow()
{
    const QWindow* window = QGuiApplication::focusWindow();
    const bool isOnX11 = window != nullptr && QGuiApplication::platformName() == "xcb"_L1;
    return isOnX11 ? u"x11:%1"_s.arg(window->winId(), 0, 16) : QString();
}

} // namespace

ApplicationChoice::ApplicationChoice(Sources sources, SettingsMirror& settings, const QDBusConnection& bus)
    : m_sources(std::move(sources))
    , m_settings(settings)
    , m_bus(bus)
{
    registerFileFilters();
}

void ApplicationChoice::refresh()
{
    setProblem({});
    m_applications.clear();
    Q_EMIT applicationsChanged();
    m_settings.askForRunningApplications([this](const QStringList& ids) { list(ids); });
    m_portalQuestion = callAsync(m_bus,
        DBusProperties::get(BusNames::desktopPortal, portalPath, chooserInterface, u"version"_s),
        [this](const QDBusMessage& answer) { setCanBrowse(DBusProperties::propertyIn(answer).isValid()); },
        {.startsService = true});
}

void ApplicationChoice::list(const QStringList& runningIds)
{
    QList<InstalledApplication> applications
        = m_sources.installed ? m_sources.installed() : QList<InstalledApplication>();
    // Tarvik runs whenever the allow-list counts: on it, it would keep the computer awake for ever.
    applications.removeIf([](const auto& each) { return each.bundleID == QGuiApplication::desktopFileName(); });
    m_applications = rowsOf(std::move(applications), runningIds);
    Q_EMIT applicationsChanged();
}

void ApplicationChoice::browse()
{
    setProblem({});
    const QVariantMap options{
        {u"filters"_s,
            QVariant::fromValue(FileFilters{{QCoreApplication::translate("ApplicationChoice", "Desktop files"),
                {{FilePattern::glob, u"*.desktop"_s}}}})},
        // With the zero that ends it, as the portal has it.
        {u"current_folder"_s, QByteArray("/usr/share/applications", sizeof "/usr/share/applications")},
    };
    m_request = std::make_unique<PortalRequest>(m_bus,
        QDBusMessage::createMethodCall(BusNames::desktopPortal, portalPath, chooserInterface, u"OpenFile"_s),
        QVariantList{focusedWindow(), QCoreApplication::translate("ApplicationChoice", "Add App")},
        options,
        [this](const QVariantMap* results) { take(results); });
}

void ApplicationChoice::take(const QVariantMap* results)
{
    const QStringList addresses = results != nullptr ? results->value(u"uris"_s).toStringList() : QStringList();
    m_request.reset();
    if (addresses.isEmpty())
        return;
    const QString path = QUrl(addresses.constFirst()).toLocalFile();
    const auto application = m_sources.ofFile ? m_sources.ofFile(path) : std::nullopt;
    if (!application) {
        const QString name = QFileInfo(path).fileName();
        setProblem(QCoreApplication::translate(
            "ApplicationChoice", "%1 is not the desktop file of an application that can be started.")
                       .arg(name));
        return;
    }
    m_settings.addToAllowlist(application->bundleID, application->name);
    Q_EMIT added();
}

void ApplicationChoice::setCanBrowse(bool on)
{
    if (std::exchange(m_canBrowse, on) != on)
        Q_EMIT canBrowseChanged();
}

void ApplicationChoice::setProblem(const QString& problem)
{
    if (std::exchange(m_problem, problem) != problem)
        Q_EMIT problemChanged();
}

} // namespace Tarvik
