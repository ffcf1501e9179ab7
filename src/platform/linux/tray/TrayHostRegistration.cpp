// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/TrayHostRegistration.h"

#include "core/Logging.h"
#include "dbus/BusDaemon.h"
#include "dbus/DBusProperties.h"

#include <QCoreApplication>

#include <algorithm>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto watcherName = u"org.kde.StatusNotifierWatcher"_s;
const auto watcherPath = u"/StatusNotifierWatcher"_s;

QString ownName()
{
    return u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());
}

/// Watchers list an item by the bus name alone or with the path of its object behind it, in various notations.
bool isItemOf(const QString& name, const QString& item)
{
    if (!item.startsWith(name))
        return false;
    const QChar next = item.size() == name.size() ? QChar(u'/') : item.at(name.size());
    return !next.isLetterOrNumber();
}

} // namespace

TrayHostRegistration::TrayHostRegistration(QDBusConnection sessionBus, Clock& clock)
    : m_bus(std::move(sessionBus))
    , m_clock(clock)
    , m_watcher(m_bus, {watcherName})
{
    if (!m_bus.isConnected())
        return;
    m_watcher.onKnown = [this] { followWatcher(); };
    m_watcher.onOwnerChange = [this](const QString&) { followWatcher(); };
    requestOwnName();
}

TrayHostRegistration::~TrayHostRegistration()
{
    if (!m_bus.isConnected())
        return;
    m_bus.send(BusDaemon::call(u"ReleaseName"_s, {ownName()}));
}

void TrayHostRegistration::requestOwnName()
{
    constexpr uint doNotQueue = 4;
    constexpr uint primaryOwner = 1;
    const QDBusMessage request = BusDaemon::call(u"RequestName"_s, {ownName(), doNotQueue});
    m_nameCall = callAsync(m_bus, request, [this](const QDBusMessage& answer) {
        m_nameCall.reset();
        const bool isOwner
            = answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toUInt() == primaryOwner;
        // Another process may have the same number in a process namespace of its own.
        m_name = isOwner ? ownName() : m_bus.baseService();
        followWatcher();
    });
}

void TrayHostRegistration::followWatcher()
{
    m_repetitions = 0;
    m_changes.clear();
    if (const QString owner = m_watcher.owner(watcherName); !owner.isEmpty()) {
        for (const auto& name : {u"StatusNotifierHostRegistered"_s,
                 u"StatusNotifierHostUnregistered"_s,
                 u"StatusNotifierItemUnregistered"_s}) {
            m_changes.push_back(std::make_unique<DBusSignal>(m_bus,
                DBusSignal::Source{owner, watcherPath, watcherName, name, {}},
                [this](const QDBusMessage&) { lookAgain(); }));
        }
    }
    setHasHost(false);
    announce();
}

void TrayHostRegistration::announce()
{
    m_announcement.reset();
    m_watcherCall.reset();
    m_check.reset();
    m_isAnnounced = false;
    if (m_name.isEmpty() || !m_watcher.isOwned(watcherName))
        return;
    auto call = QDBusMessage::createMethodCall(watcherName, watcherPath, watcherName, u"RegisterStatusNotifierItem"_s);
    call << m_name;
    m_announcement = callAsync(m_bus, call, [this](const QDBusMessage& answer) {
        m_announcement.reset();
        m_isAnnounced = answer.type() == QDBusMessage::ReplyMessage;
        if (!m_isAnnounced && m_repetitions == maximumRepetitions) {
            qCWarning(logSystem, "the tray refused the item: %s", qUtf8Printable(answer.errorMessage()));
            return;
        }
        checkSoon();
        lookAgain();
    });
}

void TrayHostRegistration::checkSoon()
{
    m_check = m_clock.after(settlingTime, [this] {
        m_check.reset();
        check();
    });
}

void TrayHostRegistration::check()
{
    if (m_isAnnounced)
        askWatcher([this] { repeat(); });
    else
        repeat();
}

void TrayHostRegistration::repeat()
{
    if (m_repetitions == maximumRepetitions) {
        qCWarning(logSystem, "the tray does not keep the item");
        return;
    }
    ++m_repetitions;
    announce();
}

void TrayHostRegistration::lookAgain()
{
    // Not announced again at once: the watcher may be in the middle of something.
    askWatcher([this] {
        if (!m_check && m_repetitions < maximumRepetitions)
            checkSoon();
    });
}

void TrayHostRegistration::askWatcher(std::function<void()> onMissing)
{
    if (!m_isAnnounced)
        return;
    const QDBusMessage call = DBusProperties::getAll(watcherName, watcherPath, watcherName);
    m_watcherCall = callAsync(m_bus, call, [this, onMissing = std::move(onMissing)](const QDBusMessage& answer) {
        m_watcherCall.reset();
        // A watcher that accepts items but cannot tell is taken for a tray.
        const QVariantMap watcher = DBusProperties::propertiesIn(answer).value_or(QVariantMap());
        const auto items = DBusProperties::exactly<QStringList>(watcher[u"RegisteredStatusNotifierItems"_s]);
        const auto hasHost = DBusProperties::exactly<bool>(watcher[u"IsStatusNotifierHostRegistered"_s]);
        const bool isListed = !items || isAmong(*items);
        setHasHost(isListed && hasHost.value_or(true));
        if (!isListed)
            onMissing();
    });
}

bool TrayHostRegistration::isAmong(const QStringList& items) const
{
    return std::ranges::any_of(
        items, [this](const QString& item) { return isItemOf(m_name, item) || isItemOf(m_bus.baseService(), item); });
}

void TrayHostRegistration::setHasHost(bool hasHost)
{
    if (hasHost == m_hasHost)
        return;
    m_hasHost = hasHost;
    if (onHostChange)
        onHostChange();
}

} // namespace Tarvik
