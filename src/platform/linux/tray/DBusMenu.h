// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/tray/DBusMenuTree.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>

#include <functional>

namespace Tarvik {

/// The interface com.canonical.dbusmenu, version 3: a menu that the desktop's tray shows in its own style. It is on
/// the bus from construction to destruction.
class DBusMenu final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    DBusMenu(QDBusConnection bus, QString path);
    ~DBusMenu() override;

    uint version() const;
    QString textDirection() const;
    QString status() const;
    QStringList iconThemePath() const { return {}; }

    /// Trays are told once the main loop turns, and only of what has changed then.
    void setMenu(const TrayMenu& menu);

    /// The user chose an enabled entry.
    std::function<void(int id)> onActivated;

public Q_SLOTS:
    uint GetLayout(
        int parentId, int recursionDepth, const QStringList& propertyNames, Tarvik::DBusMenuLayoutItem& layout);
    QList<Tarvik::DBusMenuItem> GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames);
    QDBusVariant GetProperty(int id, const QString& name);
    void Event(int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    QList<int> EventGroup(const QList<Tarvik::DBusMenuEvent>& events);
    bool AboutToShow(int id);
    QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

Q_SIGNALS:
    void ItemsPropertiesUpdated(
        const QList<Tarvik::DBusMenuItem>& updatedProps, const QList<Tarvik::DBusMenuItemKeys>& removedProps);
    void LayoutUpdated(uint revision, int parent);
    void ItemActivationRequested(int id, uint timestamp);

private:
    const TrayMenuEntry* require(int id);
    bool handleEvent(int id, const QString& eventId);
    void announce();

    QDBusConnection m_bus;
    QString m_path;
    TrayMenuEntry m_root;
    /// What trays have been told of.
    TrayMenuEntry m_announced;
    uint m_revision = 1;
    bool m_isAnnouncing = false;
};

} // namespace Tarvik
