// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/DBusMenu.h"

#include <QDBusError>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

DBusMenu::DBusMenu(QDBusConnection bus, QString path)
    : m_bus(std::move(bus))
    , m_path(std::move(path))
    , m_root(DBusMenuTree::rootOf({}))
    , m_announced(m_root)
{
    registerDBusMenuTypes();
    m_bus.registerObject(m_path,
        this,
        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals | QDBusConnection::ExportAllProperties);
}

DBusMenu::~DBusMenu()
{
    m_bus.unregisterObject(m_path);
}

uint DBusMenu::version() const
{
    return 3;
}

QString DBusMenu::textDirection() const
{
    return u"ltr"_s;
}

QString DBusMenu::status() const
{
    return u"normal"_s;
}

void DBusMenu::setMenu(const TrayMenu& menu)
{
    m_root = DBusMenuTree::rootOf(menu);
    if (std::exchange(m_isAnnouncing, true))
        return;
    QMetaObject::invokeMethod(this, &DBusMenu::announce, Qt::QueuedConnection);
}

void DBusMenu::announce()
{
    m_isAnnouncing = false;
    const TrayMenuEntry before = std::exchange(m_announced, m_root);
    if (!DBusMenuTree::haveSameShape(before, m_root)) {
        Q_EMIT LayoutUpdated(++m_revision, DBusMenuTree::rootId);
        return;
    }
    const auto changes = DBusMenuTree::changes(before, m_root);
    if (!changes.isEmpty())
        Q_EMIT ItemsPropertiesUpdated(changes.updated, changes.removed);
}

const TrayMenuEntry* DBusMenu::require(int id)
{
    const TrayMenuEntry* entry = DBusMenuTree::find(m_root, id);
    if (entry == nullptr && calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, u"The menu has no entry %1."_s.arg(id));
    return entry;
}

uint DBusMenu::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames, DBusMenuLayoutItem& layout)
{
    if (recursionDepth < -1) {
        sendErrorReply(QDBusError::InvalidArgs, u"%1 is no depth: 0 and above, or -1 for all."_s.arg(recursionDepth));
        return 0;
    }
    if (const TrayMenuEntry* parent = require(parentId))
        layout = DBusMenuTree::layout(*parent, recursionDepth, propertyNames);
    return m_revision;
}

QList<DBusMenuItem> DBusMenu::GetGroupProperties(const QList<int>& ids, const QStringList& propertyNames)
{
    if (ids.isEmpty())
        return DBusMenuTree::flattened(m_root, propertyNames);
    QList<DBusMenuItem> items;
    for (const int id : ids) {
        if (const TrayMenuEntry* entry = DBusMenuTree::find(m_root, id))
            items.append({id, DBusMenuTree::properties(*entry, propertyNames)});
    }
    return items;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString& name)
{
    const TrayMenuEntry* entry = require(id);
    if (entry == nullptr)
        return QDBusVariant(0);
    const QVariant value = DBusMenuTree::properties(*entry).value(name);
    if (!value.isValid()) {
        sendErrorReply(QDBusError::InvalidArgs, u"Entry %1 has no property \"%2\"."_s.arg(id).arg(name));
        return QDBusVariant(0);
    }
    return QDBusVariant(value);
}

void DBusMenu::Event(int id, const QString& eventId, const QDBusVariant&, uint)
{
    if (require(id) != nullptr)
        handleEvent(id, eventId);
}

QList<int> DBusMenu::EventGroup(const QList<DBusMenuEvent>& events)
{
    QList<int> unknown;
    for (const DBusMenuEvent& event : events) {
        if (!handleEvent(event.id, event.eventId))
            unknown.append(event.id);
    }
    if (!events.isEmpty() && unknown.size() == events.size())
        sendErrorReply(QDBusError::InvalidArgs, u"The menu has none of these entries."_s);
    return unknown;
}

bool DBusMenu::AboutToShow(int id)
{
    require(id);
    return false;
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors)
{
    for (const int id : ids) {
        if (DBusMenuTree::find(m_root, id) == nullptr)
            idErrors.append(id);
    }
    if (!ids.isEmpty() && idErrors.size() == ids.size())
        sendErrorReply(QDBusError::InvalidArgs, u"The menu has none of these entries."_s);
    return {};
}

bool DBusMenu::handleEvent(int id, const QString& eventId)
{
    const TrayMenuEntry* entry = DBusMenuTree::find(m_root, id);
    if (entry == nullptr)
        return false;
    const bool isCommand = id != DBusMenuTree::rootId && !entry->isSeparator && entry->entries.empty();
    if (eventId == "clicked"_L1 && isCommand && entry->isEnabled && onActivated)
        onActivated(id);
    return true;
}

} // namespace Tarvik
