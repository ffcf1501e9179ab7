// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/TrayHostRegistration.h"

#include "core/Logging.h"

#include <QCoreApplication>
#include <QDBusVariant>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto watcherName = u"org.kde.StatusNotifierWatcher"_s;
const auto watcherPath = u"/StatusNotifierWatcher"_s;

QDBusMessage busCall(const QString& method)
{
    const auto bus = u"org.freedesktop.DBus"_s;
    return QDBusMessage::createMethodCall(bus, u"/org/freedesktop/DBus"_s, bus, method);
}

QString ownName()
{
    return u"org.kde.StatusNotifierItem-%1-1"_s.arg(QCoreApplication::applicationPid());
}

} // namespace

TrayHostRegistration::TrayHostRegistration(QDBusConnection sessionBus)
    : m_bus(std::move(sessionBus))
    , m_watcher(m_bus, {watcherName})
{
    if (!m_bus.isConnected())
        return;
    for (const auto& signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        m_bus.connect({}, watcherPath, watcherName, signal, this, SLOT(askForHost()));
    m_watcher.onKnown = [this] { announce(); };
    m_watcher.onOwnerChange = [this](const QString&) { announce(); };
    requestOwnName();
}

TrayHostRegistration::~TrayHostRegistration()
{
    if (!m_bus.isConnected())
        return;
    QDBusMessage release = busCall(u"ReleaseName"_s);
    release << ownName();
    m_bus.send(release);
}

void TrayHostRegistration::requestOwnName()
{
    constexpr uint doNotQueue = 4;
    constexpr uint primaryOwner = 1;
    QDBusMessage request = busCall(u"RequestName"_s);
    request << ownName() << doNotQueue;
    m_nameCall = callAsync(m_bus, request, [this](const QDBusMessage& answer) {
        m_nameCall.reset();
        const bool isOwner
            = answer.type() == QDBusMessage::ReplyMessage && answer.arguments().value(0).toUInt() == primaryOwner;
        // Another process may have the same number in a process namespace of its own.
        m_name = isOwner ? ownName() : m_bus.baseService();
        announce();
    });
}

void TrayHostRegistration::announce()
{
    m_announcement.reset();
    m_hostCall.reset();
    m_isAnnounced = false;
    setHasHost(false);
    if (m_name.isEmpty() || !m_watcher.isOwned(watcherName))
        return;
    auto call = QDBusMessage::createMethodCall(watcherName, watcherPath, watcherName, u"RegisterStatusNotifierItem"_s);
    call << m_name;
    m_announcement = callAsync(m_bus, call, [this](const QDBusMessage& answer) {
        m_announcement.reset();
        if (answer.type() != QDBusMessage::ReplyMessage) {
            qCWarning(logSystem, "the panel refused the tray item: %s", qUtf8Printable(answer.errorMessage()));
            return;
        }
        m_isAnnounced = true;
        askForHost();
    });
}

void TrayHostRegistration::askForHost()
{
    if (!m_isAnnounced)
        return;
    auto call
        = QDBusMessage::createMethodCall(watcherName, watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << watcherName << u"IsStatusNotifierHostRegistered"_s;
    m_hostCall = callAsync(m_bus, call, [this](const QDBusMessage& answer) {
        m_hostCall.reset();
        // A watcher that accepts items but cannot tell is taken for a panel.
        const QVariant value = answer.arguments().value(0).value<QDBusVariant>().variant();
        setHasHost(value.typeId() != QMetaType::Bool || value.toBool());
    });
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
