// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/GnomeHotKeys.h"

#include "platform/linux/hotkeys/GnomeCustomShortcut.h"
#include "platform/linux/hotkeys/KeyCombination.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto signalPath = u"/com/morvanta/Tarvik/HotKeys"_s;
const auto signalInterface = u"com.morvanta.Tarvik.HotKeys1"_s;
const auto signalName = u"Pressed"_s;

std::unique_ptr<GnomeCustomShortcut> setShortcut(const HotKeyRequest& request)
{
    const auto keys = KeyCombination::fromCarbon(request.keyCode, request.modifiers);
    if (!keys)
        return nullptr;
    const QString& name = request.purpose.name;
    const QString command
        = QStringList{u"busctl --user emit"_s, signalPath, signalInterface, signalName, u"s"_s, name}.join(u' ');
    return GnomeCustomShortcut::set(u"tarvik-"_s + name,
        {.name = request.purpose.description, .command = command, .binding = keys->gtkAccelerator()});
}

} // namespace

class GnomeHotKeys::Registration final : public HotKeyRegistration {
public:
    Registration(GnomeHotKeys& hotKeys, HotKeyRequest request)
        : m_hotKeys(hotKeys)
        , m_request(std::move(request))
        , m_shortcut(setShortcut(m_request))
    {
        m_hotKeys.m_registrations.push_back(this);
    }
    ~Registration() override { std::erase(m_hotKeys.m_registrations, this); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    HotKeyState state() const override
    {
        return {u"GNOME's custom shortcuts"_s, m_shortcut ? HotKeyStatus::registered : HotKeyStatus::notAvailable};
    }
    const HotKeyRequest& request() const { return m_request; }

private:
    GnomeHotKeys& m_hotKeys;
    HotKeyRequest m_request;
    std::unique_ptr<GnomeCustomShortcut> m_shortcut;
};

GnomeHotKeys::GnomeHotKeys(const QDBusConnection& sessionBus)
    : m_presses(sessionBus, {{}, signalPath, signalInterface, signalName, {}}, [this](const QDBusMessage& signal) {
        receivePress(signal);
    })
{
}

std::unique_ptr<HotKeyRegistration> GnomeHotKeys::registerHotKey(const HotKeyRequest& request)
{
    return std::make_unique<Registration>(*this, request);
}

void GnomeHotKeys::receivePress(const QDBusMessage& signal)
{
    if (signal.signature() != "s"_L1)
        return;
    const QString name = signal.arguments().constFirst().toString();
    for (const Registration* registration : m_registrations) {
        if (registration->request().purpose.name == name) {
            pressed(registration->request().id);
            return;
        }
    }
}

} // namespace Tarvik
