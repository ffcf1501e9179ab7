// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/SessionManagerLocks.h"

#include "dbus/BusNames.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

struct SessionManagerLocks::Inhibitor {
    ListedLock lock;
    std::uint32_t flags = 0;
};

SessionManagerLocks::SessionManagerLocks(
    Send send, std::function<void(const std::optional<QList<ListedLock>>& locks)> done)
    : m_send(std::move(send))
    , m_done(std::move(done))
{
}

void SessionManagerLocks::ask()
{
    const auto call = QDBusMessage::createMethodCall(
        BusNames::sessionManager, u"/org/gnome/SessionManager"_s, u"org.gnome.SessionManager"_s, u"GetInhibitors"_s);
    m_send(call, [this](const QDBusMessage& answer) {
        if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "ao"_L1) {
            m_done({});
            return;
        }
        QStringList paths;
        const auto objects = qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().constFirst());
        for (const QDBusObjectPath& path : objects)
            paths.append(path.path());
        describe(paths);
    });
}

void SessionManagerLocks::describe(const QStringList& paths)
{
    // One more than the answers that are waited for, so that none of them is the last before all questions are asked.
    m_unanswered = 1;
    for (const QString& path : paths) {
        const auto inhibitor = std::make_shared<Inhibitor>();
        m_inhibitors.append(inhibitor);
        ask(path, u"GetAppId"_s, [inhibitor](const QVariant& value) { inhibitor->lock.who = value.toString(); });
        ask(path, u"GetReason"_s, [inhibitor](const QVariant& value) { inhibitor->lock.why = value.toString(); });
        ask(path, u"GetFlags"_s, [inhibitor](const QVariant& value) { inhibitor->flags = value.toUInt(); });
        ask(path, u"GetClientId"_s, [this, inhibitor](const QVariant& value) {
            askForProcess(inhibitor, value.value<QDBusObjectPath>().path());
        });
    }
    countDown();
}

void SessionManagerLocks::ask(
    const QString& path, const QString& method, std::function<void(const QVariant& value)> take)
{
    ++m_unanswered;
    const auto call = QDBusMessage::createMethodCall(
        BusNames::sessionManager, path, u"org.gnome.SessionManager.Inhibitor"_s, method);
    m_send(call, [this, take = std::move(take)](const QDBusMessage& answer) {
        // An error is the answer of one that has been given back meanwhile, and leaves it without flags.
        if (answer.type() == QDBusMessage::ReplyMessage)
            take(answer.arguments().value(0));
        countDown();
    });
}

void SessionManagerLocks::askForProcess(const std::shared_ptr<Inhibitor>& inhibitor, const QString& client)
{
    // Only programs that the session manager has started, or that have told it of themselves, are its clients.
    if (client.size() <= 1)
        return;
    ++m_unanswered;
    const auto call = QDBusMessage::createMethodCall(
        BusNames::sessionManager, client, u"org.gnome.SessionManager.Client"_s, u"GetUnixProcessId"_s);
    m_send(call, [this, inhibitor](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "u"_L1)
            inhibitor->lock.process = answer.arguments().constFirst().toUInt();
        countDown();
    });
}

void SessionManagerLocks::countDown()
{
    if (--m_unanswered > 0)
        return;
    QList<ListedLock> locks;
    for (const auto& inhibitor : std::as_const(m_inhibitors)) {
        inhibitor->lock.effects = LockRules::effectsOfFlags(inhibitor->flags);
        inhibitor->lock.isMirrored = (inhibitor->flags & LockRules::suspendFlag) != 0;
        if (inhibitor->lock.effects != SleepLockEffects())
            locks.append(inhibitor->lock);
    }
    m_done(locks);
}

} // namespace Tarvik
