// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/PortalHotKeys.h"

#include "dbus/BusNames.h"
#include "platform/linux/hotkeys/KeyCombination.h"
#include "platform/linux/hotkeys/PortalShortcut.h"

#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto shortcutsInterface = u"org.freedesktop.portal.GlobalShortcuts"_s;
const auto sessionInterface = u"org.freedesktop.portal.Session"_s;

QDBusMessage portalCall(const QString& interface, const QString& method)
{
    return QDBusMessage::createMethodCall(BusNames::desktopPortal, portalPath, interface, method);
}

QStringList shortcutNames(const QVariant& value)
{
    QStringList names;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "a(sa{sv})"_L1)
        return names;
    for (const PortalShortcut& shortcut : qdbus_cast<PortalShortcutList>(argument))
        names.append(shortcut.name);
    return names;
}

} // namespace

class PortalHotKeys::Registration final : public HotKeyRegistration {
public:
    Registration(PortalHotKeys& hotKeys, const HotKeyRequest& request)
        : m_hotKeys(hotKeys)
        , m_request(request)
        , m_keys(KeyCombination::fromCarbon(request.keyCode, request.modifiers))
        , m_status(m_keys && m_hotKeys.m_bus.isConnected() ? HotKeyStatus::pending : HotKeyStatus::notAvailable)
    {
        m_hotKeys.m_registrations.push_back(this);
        m_hotKeys.restartSoon();
    }
    ~Registration() override
    {
        std::erase(m_hotKeys.m_registrations, this);
        m_hotKeys.restartSoon();
    }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    HotKeyState state() const override { return {u"desktop portal"_s, m_status}; }
    const HotKeyRequest& request() const { return m_request; }
    const QString& name() const { return m_request.purpose.name; }
    const std::optional<KeyCombination>& keys() const { return m_keys; }
    void setStatus(HotKeyStatus status) { m_status = status; }

private:
    PortalHotKeys& m_hotKeys;
    HotKeyRequest m_request;
    std::optional<KeyCombination> m_keys;
    HotKeyStatus m_status;
};

PortalHotKeys::PortalHotKeys(QDBusConnection bus)
    : m_bus(std::move(bus))
    , m_names(m_bus, {BusNames::desktopPortal})
{
    registerPortalShortcuts();
    m_names.onKnown = [this] {
        if (m_names.isOwned(BusNames::desktopPortal)) {
            followOwner();
            return;
        }
        m_call = m_names.start(BusNames::desktopPortal, [this](bool isStarted) {
            m_call.reset();
            // A portal that comes up is heard of by its name.
            if (!isStarted)
                setRegistered({});
        });
    };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
}

PortalHotKeys::~PortalHotKeys()
{
    closeSession();
}

std::unique_ptr<HotKeyRegistration> PortalHotKeys::registerHotKey(const HotKeyRequest& request)
{
    return std::make_unique<Registration>(*this, request);
}

void PortalHotKeys::restartSoon()
{
    if (std::exchange(m_isRestartScheduled, true))
        return;
    QMetaObject::invokeMethod(
        &m_eventLoop,
        [this] {
            m_isRestartScheduled = false;
            if (m_isIntroduced)
                start();
        },
        Qt::QueuedConnection);
}

void PortalHotKeys::followOwner()
{
    m_session.clear();
    m_isIntroduced = false;
    m_presses.reset();
    m_closures.reset();
    m_owner = m_names.owner(BusNames::desktopPortal);
    if (m_owner.isEmpty()) {
        m_call.reset();
        m_request.reset();
        setRegistered({});
        return;
    }
    m_presses = std::make_unique<DBusSignal>(m_bus,
        DBusSignal::Source{m_owner, portalPath, shortcutsInterface, u"Activated"_s, {}},
        [this](const QDBusMessage& signal) { receivePress(signal); });
    m_closures = std::make_unique<DBusSignal>(m_bus,
        DBusSignal::Source{m_owner, {}, sessionInterface, u"Closed"_s, {}},
        [this](const QDBusMessage& signal) { receiveClosed(signal); });
    start();
}

void PortalHotKeys::start()
{
    closeSession();
    if (m_isIntroduced)
        createSession();
    else
        introduce();
}

void PortalHotKeys::introduce()
{
    auto message = portalCall(u"org.freedesktop.host.portal.Registry"_s, u"Register"_s);
    message.setArguments({u"com.morvanta.Tarvik"_s, QVariantMap()});
    m_call = callAsync(m_bus, message, [this](const QDBusMessage&) {
        // Portals before 1.20 do not know the call and do not need it.
        readVersion();
    });
}

void PortalHotKeys::readVersion()
{
    auto message = portalCall(u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message.setArguments({shortcutsInterface, u"version"_s});
    m_call = callAsync(m_bus, message, [this](const QDBusMessage& answer) { receiveVersion(answer); });
}

void PortalHotKeys::receiveVersion(const QDBusMessage& answer)
{
    m_call.reset();
    const bool isNumber = answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "v"_L1;
    if (!isNumber || answer.arguments().constFirst().value<QDBusVariant>().variant().toUInt() == 0) {
        setRegistered({});
        return;
    }
    m_isIntroduced = true;
    createSession();
}

void PortalHotKeys::createSession()
{
    if (m_registrations.empty())
        return;
    m_request = std::make_unique<PortalRequest>(m_bus,
        portalCall(shortcutsInterface, u"CreateSession"_s),
        QVariantList(),
        QVariantMap{{u"session_handle_token"_s, u"tarvik_"_s + QUuid::createUuid().toString(QUuid::Id128)}},
        [this](const QVariantMap* results) {
            m_request.reset();
            m_session = results != nullptr ? results->value(u"session_handle"_s).toString() : QString();
            if (m_session.isEmpty())
                setRegistered({});
            else
                bindShortcuts();
        });
}

void PortalHotKeys::bindShortcuts()
{
    PortalShortcutList shortcuts;
    for (const Registration* registration : m_registrations) {
        if (registration->keys()) {
            shortcuts.append({registration->name(),
                {{u"description"_s, registration->request().purpose.description},
                    {u"preferred_trigger"_s, registration->keys()->xdgTrigger()}}});
        }
    }
    const QString noParentWindow = u""_s;
    m_request = std::make_unique<PortalRequest>(m_bus,
        portalCall(shortcutsInterface, u"BindShortcuts"_s),
        QVariantList{QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), noParentWindow},
        QVariantMap(),
        [this](const QVariantMap* results) {
            m_request.reset();
            setRegistered(results != nullptr ? shortcutNames(results->value(u"shortcuts"_s)) : QStringList());
        });
}

void PortalHotKeys::closeSession()
{
    m_request.reset();
    if (m_session.isEmpty())
        return;
    auto message = QDBusMessage::createMethodCall(
        BusNames::desktopPortal, std::exchange(m_session, {}), sessionInterface, u"Close"_s);
    message.setAutoStartService(false);
    m_bus.send(message);
}

void PortalHotKeys::setRegistered(const QStringList& names)
{
    for (Registration* registration : m_registrations) {
        registration->setStatus(
            names.contains(registration->name()) ? HotKeyStatus::registered : HotKeyStatus::notAvailable);
    }
    stateChanged();
}

void PortalHotKeys::receivePress(const QDBusMessage& signal)
{
    if (signal.signature() != "osta{sv}"_L1 || signal.arguments().at(0).value<QDBusObjectPath>().path() != m_session)
        return;
    const auto it = std::ranges::find(m_registrations, signal.arguments().at(1).toString(), &Registration::name);
    if (it != m_registrations.end())
        pressed((*it)->request().id);
}

void PortalHotKeys::receiveClosed(const QDBusMessage& signal)
{
    if (m_session.isEmpty() || signal.path() != m_session)
        return;
    m_session.clear();
    m_request.reset();
    setRegistered({});
}

} // namespace Tarvik
