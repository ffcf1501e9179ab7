// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/KGlobalAccelHotKeys.h"

#include "dbus/DBusCall.h"
#include "platform/linux/hotkeys/KeyCombination.h"

#include <QDBusArgument>

#include <algorithm>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto component = u"com.morvanta.Tarvik"_s;
/// KGlobalAccel makes it of the component's name.
const auto componentPath = u"/component/com_morvanta_Tarvik"_s;
const auto componentInterface = u"org.kde.kglobalaccel.Component"_s;

/// Flags of "setShortcut".
constexpr uint setPresent = 2;
constexpr uint isDefault = 8;

/// The keys that an action really has; none when another program has them or the user wants none.
bool hasKeys(const QDBusMessage& answer)
{
    const auto keys = qdbus_cast<QList<int>>(answer.arguments().constFirst());
    return std::ranges::any_of(keys, [](int key) { return key != 0; });
}

} // namespace

class KGlobalAccelHotKeys::Registration final : public HotKeyRegistration {
public:
    Registration(KGlobalAccelHotKeys& hotKeys, const HotKeyRequest& request)
        : m_hotKeys(hotKeys)
        , m_id(request.id)
        , m_actionId{component, request.purpose.name, u"Tarvik"_s, request.purpose.description}
    {
        m_hotKeys.m_registrations.push_back(this);
        if (const auto keys = KeyCombination::fromCarbon(request.keyCode, request.modifiers))
            announce(keys->qtKey());
        else
            m_status = HotKeyStatus::notAvailable;
    }

    ~Registration() override
    {
        std::erase(m_hotKeys.m_registrations, this);
        // The action stays known, with the user's choice of keys.
        m_hotKeys.m_bus.send(methodCall(u"setInactive"_s, {m_actionId}));
    }

    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    HotKeyState state() const override { return {u"KGlobalAccel"_s, m_status}; }
    std::uint32_t id() const { return m_id; }
    const QString& actionName() const { return m_actionId.at(1); }

private:
    QDBusMessage methodCall(const QString& method, const QVariantList& arguments) const
    {
        auto message
            = QDBusMessage::createMethodCall(m_hotKeys.m_owner, u"/kglobalaccel"_s, u"org.kde.KGlobalAccel"_s, method);
        message.setArguments(arguments);
        return message;
    }

    /// Three calls that are answered in their order; the last answer tells what has become of it.
    void announce(int key)
    {
        const auto keys = QVariant::fromValue(QList<int>{key});
        m_registering = send(u"doRegister"_s, {m_actionId});
        m_settingDefault = send(u"setShortcut"_s, {m_actionId, keys, isDefault});
        m_settingKeys = callAsync(m_hotKeys.m_bus,
            methodCall(u"setShortcut"_s, {m_actionId, keys, setPresent}),
            [this](const QDBusMessage& answer) { receive(answer); });
    }

    DBusCall send(const QString& method, const QVariantList& arguments)
    {
        return callAsync(m_hotKeys.m_bus, methodCall(method, arguments), [](const QDBusMessage&) {});
    }

    void receive(const QDBusMessage& answer)
    {
        m_settingKeys.reset();
        if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "ai"_L1)
            m_status = HotKeyStatus::notAvailable;
        else
            m_status = hasKeys(answer) ? HotKeyStatus::registered : HotKeyStatus::taken;
        m_hotKeys.stateChanged();
    }

    KGlobalAccelHotKeys& m_hotKeys;
    std::uint32_t m_id;
    QStringList m_actionId;
    HotKeyStatus m_status = HotKeyStatus::pending;
    DBusCall m_registering;
    DBusCall m_settingDefault;
    DBusCall m_settingKeys;
};

KGlobalAccelHotKeys::KGlobalAccelHotKeys(QDBusConnection sessionBus, QString owner)
    : m_bus(std::move(sessionBus))
    , m_owner(std::move(owner))
    , m_presses(m_bus,
          {m_owner, componentPath, componentInterface, u"globalShortcutPressed"_s, {component}},
          [this](const QDBusMessage& signal) { receivePress(signal); })
{
}

std::unique_ptr<HotKeyRegistration> KGlobalAccelHotKeys::registerHotKey(const HotKeyRequest& request)
{
    return std::make_unique<Registration>(*this, request);
}

void KGlobalAccelHotKeys::receivePress(const QDBusMessage& signal)
{
    if (signal.signature() != "ssx"_L1)
        return;
    const QString action = signal.arguments().at(1).toString();
    const auto it = std::ranges::find(m_registrations, action, &Registration::actionName);
    if (it != m_registrations.end())
        pressed((*it)->id());
}

} // namespace Tarvik
