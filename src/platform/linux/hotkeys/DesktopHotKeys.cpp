// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/DesktopHotKeys.h"

#include "dbus/BusNames.h"
#include "platform/linux/hotkeys/GnomeHotKeys.h"
#include "platform/linux/hotkeys/KGlobalAccelHotKeys.h"
#include "platform/linux/hotkeys/PortalHotKeys.h"
#include "platform/linux/hotkeys/X11HotKeys.h"

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// Shortcuts of the portal on a connection that ends with them.
class PortalOnOwnConnection final : public HotKeys {
public:
    PortalOnOwnConnection()
        : m_portal(std::make_unique<PortalHotKeys>(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name())))
        , m_presses(m_portal->pressed.subscribe([this](std::uint32_t id) { pressed(id); }))
        , m_stateChanges(m_portal->stateChanged.subscribe([this] { stateChanged(); }))
    {
    }
    ~PortalOnOwnConnection() override
    {
        m_portal.reset();
        QDBusConnection::disconnectFromBus(name());
    }
    PortalOnOwnConnection(const PortalOnOwnConnection&) = delete;
    PortalOnOwnConnection& operator=(const PortalOnOwnConnection&) = delete;

    std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override
    {
        return m_portal->registerHotKey(request);
    }

private:
    static QString name() { return u"com.morvanta.Tarvik.shortcuts"_s; }

    std::unique_ptr<PortalHotKeys> m_portal;
    Subscription m_presses;
    Subscription m_stateChanges;
};

} // namespace

class DesktopHotKeys::Registration final : public HotKeyRegistration {
public:
    Registration(DesktopHotKeys& hotKeys, HotKeyRequest request)
        : m_hotKeys(hotKeys)
        , m_request(std::move(request))
    {
        m_hotKeys.m_registrations.push_back(this);
    }
    ~Registration() override { std::erase(m_hotKeys.m_registrations, this); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    HotKeyState state() const override
    {
        if (m_held)
            return m_held->state();
        return {{}, m_hotKeys.m_names.isKnown() ? HotKeyStatus::notAvailable : HotKeyStatus::pending};
    }

    void moveTo(HotKeys* provider)
    {
        m_held.reset();
        if (provider != nullptr)
            m_held = provider->registerHotKey(m_request);
    }

private:
    DesktopHotKeys& m_hotKeys;
    HotKeyRequest m_request;
    std::unique_ptr<HotKeyRegistration> m_held;
};

DesktopHotKeys::DesktopHotKeys(QDBusConnection sessionBus, Display display)
    : m_bus(std::move(sessionBus))
    , m_display(std::move(display))
    , m_names(m_bus, {BusNames::kglobalaccel, BusNames::gnomeMediaKeys, BusNames::gnomeShell})
{
    m_names.onKnown = [this] { choose(); };
    m_names.onOwnerChange = [this](const QString&) { choose(); };
    // Without a bus nobody will tell.
    if (m_names.isKnown())
        choose();
}

DesktopHotKeys::~DesktopHotKeys() = default;

std::unique_ptr<HotKeyRegistration> DesktopHotKeys::registerHotKey(const HotKeyRequest& request)
{
    auto registration = std::make_unique<Registration>(*this, request);
    registration->moveTo(m_provider.get());
    return registration;
}

void DesktopHotKeys::choose()
{
    // Before the next one asks for the same keys.
    use(nullptr);
    m_isOnPortal = false;
    if (m_names.isOwned(BusNames::kglobalaccel))
        use(std::make_unique<KGlobalAccelHotKeys>(m_bus, m_names.owner(BusNames::kglobalaccel)));
    else if (m_display.isWayland && m_bus.isConnected()) {
        m_isOnPortal = true;
        use(std::make_unique<PortalOnOwnConnection>());
    } else if (!m_display.isWayland && m_display.x11 != nullptr) {
        if (hasGnomeShortcuts())
            use(std::make_unique<GnomeHotKeys>(m_bus));
        if (!m_provider || isRefused())
            use(std::make_unique<X11HotKeys>(m_display.x11));
    }
    stateChanged();
}

bool DesktopHotKeys::hasGnomeShortcuts() const
{
    // Cinnamon's daemon has the name of GNOME's, too, for media players. GNOME's own gets the keys from a shell of this
    // name.
    return m_names.isOwned(BusNames::gnomeMediaKeys) && m_names.isOwned(BusNames::gnomeShell);
}

bool DesktopHotKeys::isRefused() const
{
    return std::ranges::any_of(m_registrations,
        [](const Registration* registration) { return registration->state().status == HotKeyStatus::notAvailable; });
}

bool DesktopHotKeys::isRefusedByPortal() const
{
    return m_isOnPortal && hasGnomeShortcuts() && isRefused();
}

void DesktopHotKeys::fallBackFromPortal()
{
    if (!isRefusedByPortal())
        return;
    m_isOnPortal = false;
    use(std::make_unique<GnomeHotKeys>(m_bus));
    stateChanged();
}

void DesktopHotKeys::use(std::unique_ptr<HotKeys> provider)
{
    if (provider) {
        m_presses = provider->pressed.subscribe([this](std::uint32_t id) { pressed(id); });
        m_stateChanges = provider->stateChanged.subscribe([this] {
            // Not at once: it is the provider that is speaking.
            if (isRefusedByPortal())
                QMetaObject::invokeMethod(
                    &m_eventLoop, [this] { fallBackFromPortal(); }, Qt::QueuedConnection);
            stateChanged();
        });
    }
    for (Registration* registration : m_registrations)
        registration->moveTo(nullptr);
    m_provider = std::move(provider);
    for (Registration* registration : m_registrations)
        registration->moveTo(m_provider.get());
}

} // namespace Tarvik
