// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/BusNameWatch.h"

#include "dbus/BusDaemon.h"

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
    askForOwners();
}

DBusCall BusNameWatch::start(const QString& name, std::function<void(bool isStarted)> done)
{
    constexpr uint noFlags = 0;
    const auto message = BusDaemon::call(u"StartServiceByName"_s, {name, noFlags});
    return callAsync(m_watcher.connection(), message, [done = std::move(done)](const QDBusMessage& answer) {
        if (done)
            done(answer.type() == QDBusMessage::ReplyMessage);
    });
}

void BusNameWatch::askForOwners()
{
    m_owners.clear();
    m_questions.clear();
    const QStringList names = m_watcher.watchedServices();
    m_unanswered = names.size();
    for (const QString& name : names) {
        m_questions.push_back(callAsync(m_watcher.connection(),
            BusDaemon::call(u"GetNameOwner"_s, {name}),
            [this, name](const QDBusMessage& answer) { readOwner(name, answer); }));
    }
}

void BusNameWatch::readOwner(const QString& name, const QDBusMessage& answer)
{
    if (const QString owner = BusDaemon::ownerIn(answer); !owner.isEmpty())
        m_owners.insert(name, owner);
    if (--m_unanswered > 0)
        return;
    m_questions.clear();
    // QtDBus may hand over a signal ahead of an older answer, or one that an earlier watch has asked for, without those
    // that followed it; so only answers in a quiet time are believed.
    if (std::exchange(m_hasChanged, false)) {
        askForOwners();
        return;
    }
    m_known = true;
    if (onKnown)
        onKnown();
}

void BusNameWatch::setOwner(const QString& name, const QString& owner)
{
    if (!m_known) {
        m_hasChanged = true;
        return;
    }
    if (owner.isEmpty())
        m_owners.remove(name);
    else
        m_owners.insert(name, owner);
    if (onOwnerChange)
        onOwnerChange(name);
}

} // namespace Tarvik
