// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/dbus/BusNameWatch.h"

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

BusNameWatch::BusNameWatch(const QDBusConnection& bus, const QStringList& names)
{
    if (!bus.isConnected()) {
        m_known = true;
        return;
    }
    m_watcher.setConnection(bus);
    m_watcher.setWatchedServices(names);
    QObject::connect(&m_watcher,
        &QDBusServiceWatcher::serviceOwnerChanged,
        &m_watcher,
        [this](const QString& name, const QString&, const QString& owner) { setOwner(name, owner); });
    const auto message = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"ListNames"_s);
    m_listing = callAsync(bus, message, [this](const QDBusMessage& answer) { readNames(answer); });
}

void BusNameWatch::readNames(const QDBusMessage& answer)
{
    m_listing.reset();
    m_known = true;
    const QStringList toldBySignal = std::exchange(m_toldBySignal, {});
    if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "as"_L1) {
        const QStringList owned = answer.arguments().constFirst().toStringList();
        const QStringList watched = m_watcher.watchedServices();
        // QtDBus may hand over a signal ahead of an older answer, so what a signal told stands.
        std::ranges::copy_if(watched, std::back_inserter(m_owned), [&](const QString& name) {
            return owned.contains(name) && !toldBySignal.contains(name);
        });
    }
    if (onKnown)
        onKnown();
}

void BusNameWatch::setOwner(const QString& name, const QString& owner)
{
    m_owned.removeOne(name);
    if (!owner.isEmpty())
        m_owned.append(name);
    if (!m_known)
        m_toldBySignal.append(name);
    else if (onOwnerChange)
        onOwnerChange(name);
}

} // namespace Tarvik
