// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierItem.h"

#include <QStandardPaths>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto objectPath = u"/StatusNotifierItem"_s;

/// The icon that belongs to one of the application's images.
QString iconNameOf(const QString& imageName)
{
    if (imageName == "MenuActive"_L1)
        return u"tarvik-active-symbolic"_s;
    if (imageName == "MenuIdle"_L1)
        return u"tarvik-idle-symbolic"_s;
    return u"tarvik-looking-symbolic"_s;
}

/// Whether a tray finds it in the icon theme that all others inherit.
bool isInstalled(const QString& iconName)
{
    const QString file = u"icons/hicolor/symbolic/apps/"_s + iconName + u".svg"_s;
    return !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
}

} // namespace

StatusNotifierItem::StatusNotifierItem(QDBusConnection bus, QString iconDirectory, QString menuPath)
    : m_bus(std::move(bus))
    , m_iconDirectory(std::move(iconDirectory))
    , m_menuPath(std::move(menuPath))
{
    registerStatusNotifierTypes();
    m_bus.registerObject(objectPath,
        this,
        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals | QDBusConnection::ExportAllProperties);
}

StatusNotifierItem::~StatusNotifierItem()
{
    m_bus.unregisterObject(objectPath);
}

QString StatusNotifierItem::category() const
{
    return u"ApplicationStatus"_s;
}

QString StatusNotifierItem::id() const
{
    return u"tarvik"_s;
}

QString StatusNotifierItem::status() const
{
    return u"Active"_s;
}

QString StatusNotifierItem::iconName() const
{
    return iconNameOf(m_appearance.imageName);
}

QString StatusNotifierItem::iconThemePath() const
{
    // Plasma gives what comes from a path the colour of windows, which on a dark panel above light windows is dark.
    return isInstalled(iconName()) ? QString() : m_iconDirectory;
}

QList<StatusNotifierPixmap> StatusNotifierItem::iconPixmap() const
{
    // Read anew each time: few trays ask, and they keep what they get.
    return loadPixmaps(m_iconDirectory + u"/pixmaps"_s, iconName());
}

StatusNotifierToolTip StatusNotifierItem::toolTip() const
{
    return {{}, {}, m_appearance.tooltipTitle, m_appearance.tooltipBody.toHtmlEscaped()};
}

void StatusNotifierItem::setAppearance(const TrayAppearance& appearance)
{
    m_appearance = appearance;
    if (!std::exchange(m_isAnnouncing, true))
        QMetaObject::invokeMethod(this, &StatusNotifierItem::announce, Qt::QueuedConnection);
}

void StatusNotifierItem::announce()
{
    m_isAnnouncing = false;
    const TrayAppearance before = std::exchange(m_announced, m_appearance);
    if (iconNameOf(before.imageName) != iconName())
        Q_EMIT NewIcon();
    if (before.title != m_appearance.title)
        Q_EMIT NewTitle();
    if (before.tooltipTitle != m_appearance.tooltipTitle || before.tooltipBody != m_appearance.tooltipBody)
        Q_EMIT NewToolTip();
}

void StatusNotifierItem::Activate(int x, int y)
{
    const QString token = std::exchange(m_activationToken, {});
    if (onActivate)
        onActivate(x, y, token);
}

void StatusNotifierItem::SecondaryActivate(int x, int y)
{
    Activate(x, y);
}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    Activate(x, y);
}

void StatusNotifierItem::Scroll(int, const QString&)
{
    // There is nothing to scroll, but trays expect an answer.
}

void StatusNotifierItem::ProvideXdgActivationToken(const QString& token)
{
    m_activationToken = token;
}

} // namespace Tarvik
