// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TrayItem.h"
#include "platform/linux/tray/StatusNotifierTypes.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>

#include <functional>

namespace Tarvik {

/// The object /StatusNotifierItem with the interface org.kde.StatusNotifierItem: what a tray reads of an item and
/// tells it. It is on the bus from construction to destruction.
class StatusNotifierItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(QString IconThemePath READ iconThemePath)
    Q_PROPERTY(QString IconAccessibleDesc READ title)
    Q_PROPERTY(QString AttentionAccessibleDesc READ title)
    Q_PROPERTY(QList<Tarvik::StatusNotifierPixmap> IconPixmap READ iconPixmap)
    Q_PROPERTY(Tarvik::StatusNotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)

public:
    /// `iconDirectory` holds the icons as an icon theme has them, and the pictures of them in "pixmaps".
    StatusNotifierItem(QDBusConnection bus, QString iconDirectory, QString menuPath);
    ~StatusNotifierItem() override;

    QString category() const;
    QString id() const;
    QString status() const;
    QString title() const { return m_appearance.title; }
    QString iconName() const;
    QString iconThemePath() const;
    QList<StatusNotifierPixmap> iconPixmap() const;
    StatusNotifierToolTip toolTip() const;
    QDBusObjectPath menu() const { return QDBusObjectPath(m_menuPath); }
    bool itemIsMenu() const { return false; }

    /// Trays are told once the main loop turns, and only of what has changed then.
    void setAppearance(const TrayAppearance& appearance);

    std::function<void(int x, int y, const QString& activationToken)> onActivate;

public Q_SLOTS:
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    /// Only trays that show no menus of other programs call it.
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);
    /// For the click that follows.
    void ProvideXdgActivationToken(const QString& token);

Q_SIGNALS:
    void NewIcon();
    void NewTitle();
    void NewToolTip();
    void NewStatus(const QString& status);

private:
    void announce();

    QDBusConnection m_bus;
    QString m_iconDirectory;
    QString m_menuPath;
    TrayAppearance m_appearance;
    /// What trays have been told of.
    TrayAppearance m_announced;
    QString m_activationToken;
    bool m_isAnnouncing = false;
};

} // namespace Tarvik
