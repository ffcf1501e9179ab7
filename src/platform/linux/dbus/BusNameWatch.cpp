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
    askForNames();
}

void BusNameWatch::askForNames()
{
    const auto message = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"ListNames"_s);
    m_listing = callAsync(m_watcher.connection(), message, [this](const QDBusMessage& answer) { readNames(answer); });
}

void BusNameWatch::readNames(const QDBusMessage& answer)
{
    m_listing.reset();
    // QtDBus may hand over a signal ahead of an older answer, or one that an earlier watch has asked for, without those
    // that followed it; so only an answer in a quiet time is believed.
    if (std::exchange(m_hasChanged, false)) {
        askForNames();
        return;
    }
    m_known = true;
    if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "as"_L1) {
        const QStringList owned = answer.arguments().constFirst().toStringList();
        const QStringList watched = m_watcher.watchedServices();
        std::ranges::copy_if(
            watched, std::back_inserter(m_owned), [&](const QString& name) { return owned.contains(name); });
    }
    if (onKnown)
        onKnown();
}

void BusNameWatch::setOwner(const QString& name, const QString& owner)
{
    if (!m_known) {
        m_hasChanged = true;
        return;
    }
    m_owned.removeOne(name);
    if (!owner.isEmpty())
        m_owned.append(name);
    if (onOwnerChange)
        onOwnerChange(name);
}

} // namespace Tarvik
