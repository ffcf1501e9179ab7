// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11HotKeys.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

std::uint16_t modifiersOf(const KeyCombination& keys)
{
    unsigned int modifiers = 0;
    if (keys.super)
        modifiers |= XCB_MOD_MASK_4;
    if (keys.alt)
        modifiers |= XCB_MOD_MASK_1;
    if (keys.shift)
        modifiers |= XCB_MOD_MASK_SHIFT;
    if (keys.control)
        modifiers |= XCB_MOD_MASK_CONTROL;
    return static_cast<std::uint16_t>(modifiers);
}

/// The upper bits of an event's state are pointer buttons and the keyboard layout.
constexpr unsigned int modifierBits = 0xff;

/// Longer than a held key takes by default to repeat for the first time, 660 ms.
constexpr std::uint32_t repetitionMilliseconds = 700;

} // namespace

class X11HotKeys::Registration final : public HotKeyRegistration {
public:
    Registration(X11HotKeys& hotKeys, std::uint32_t id)
        : m_hotKeys(hotKeys)
        , m_id(id)
    {
    }
    ~Registration() override { m_hotKeys.remove(m_id); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;

    HotKeyState state() const override { return m_hotKeys.state(m_id); }

private:
    X11HotKeys& m_hotKeys;
    std::uint32_t m_id;
};

X11HotKeys::X11HotKeys(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
    , m_events(m_connection->received.subscribe([this](const xcb_generic_event_t& event) { receive(event); }))
    , m_settlements(m_connection->settled.subscribe([this] { tellState(); }))
    , m_arrivals(m_connection->connected.subscribe([this] { begin(); }))
    , m_losses(m_connection->lost.subscribe([this] { lose(); }))
{
    if (server() != nullptr)
        begin();
}

void X11HotKeys::begin()
{
    for (HotKey& hotKey : m_hotKeys) {
        if (hotKey.keys && std::exchange(hotKey.status, HotKeyStatus::pending) != HotKeyStatus::pending)
            m_hasStateChanged = true;
    }
    requestKeyMap();
    m_connection->send();
}

std::unique_ptr<HotKeyRegistration> X11HotKeys::registerHotKey(const HotKeyRequest& request)
{
    const auto keys = KeyCombination::fromCarbon(request.keyCode, request.modifiers);
    const bool isPossible = keys && (server() != nullptr || !m_connection->isKnown());
    m_hotKeys.push_back({.id = request.id,
        .keys = keys,
        .status = isPossible ? HotKeyStatus::pending : HotKeyStatus::notAvailable,
        .grabs = {}});
    if (isPossible && m_keyMap)
        grabAll();
    return std::make_unique<Registration>(*this, request.id);
}

HotKeyState X11HotKeys::state(std::uint32_t id) const
{
    const auto it = std::ranges::find(m_hotKeys, id, &HotKey::id);
    return {u"X11"_s, it->status};
}

void X11HotKeys::remove(std::uint32_t id)
{
    const auto it = std::ranges::find(m_hotKeys, id, &HotKey::id);
    ungrab(*it);
    m_hotKeys.erase(it);
    m_connection->send();
}

void X11HotKeys::tellState()
{
    if (std::exchange(m_hasStateChanged, false))
        stateChanged();
}

void X11HotKeys::receive(const xcb_generic_event_t& event)
{
    if (event.response_type == 0) {
        takeRefusal(event.full_sequence);
    } else if (event.response_type == XCB_KEY_PRESS) {
        // What a program has sent, and not the keyboard, has another bit set.
        takePress(reinterpret_cast<const xcb_key_press_event_t&>(event));
    } else if (event.response_type == XCB_MAPPING_NOTIFY) {
        if (reinterpret_cast<const xcb_mapping_notify_event_t&>(event).request != XCB_MAPPING_POINTER)
            requestKeyMap();
    }
}

void X11HotKeys::takePress(const xcb_key_press_event_t& press)
{
    // The press has brought the whole keyboard to us until the key is released. A screen locker that wants the keyboard
    // would be refused until then.
    xcb_ungrab_keyboard(server(), XCB_CURRENT_TIME);
    const auto isHit = [&](const Grab& grab) {
        return grab.keyCode == press.detail && grab.modifiers == (press.state & modifierBits);
    };
    const auto it = std::ranges::find_if(
        m_hotKeys, [&](const HotKey& hotKey) { return std::ranges::any_of(hotKey.grabs, isHit); });
    if (it != m_hotKeys.end() && !isRepetition(press.detail, press.time))
        pressed(it->id);
}

bool X11HotKeys::isRepetition(X11KeyMap::KeyCode key, std::uint32_t time)
{
    // Without the keyboard the release is not seen, so that only time tells a key that is held.
    const std::uint32_t elapsed = time - std::exchange(m_lastPressTime, time);
    return std::exchange(m_lastKey, key) == key && elapsed < repetitionMilliseconds;
}

void X11HotKeys::takeRefusal(unsigned int sequence)
{
    for (HotKey& hotKey : m_hotKeys) {
        if (std::ranges::find(hotKey.grabs, sequence, &Grab::sequence) == hotKey.grabs.end())
            continue;
        // To fire with some of the lock keys and not with others would be worse than not to fire.
        ungrab(hotKey);
        hotKey.status = HotKeyStatus::taken;
        m_hasStateChanged = true;
    }
}

void X11HotKeys::requestKeyMap()
{
    const xcb_setup_t& setup = *xcb_get_setup(server());
    const auto count = static_cast<std::uint8_t>(setup.max_keycode - setup.min_keycode + 1);
    m_symbolsReply = m_connection->await(xcb_get_keyboard_mapping(server(), setup.min_keycode, count).sequence,
        [this](const void* reply) { takeSymbols(static_cast<const xcb_get_keyboard_mapping_reply_t*>(reply)); });
    m_modifiersReply = m_connection->await(xcb_get_modifier_mapping(server()).sequence,
        [this](const void* reply) { takeModifiers(static_cast<const xcb_get_modifier_mapping_reply_t*>(reply)); });
}

void X11HotKeys::takeSymbols(const xcb_get_keyboard_mapping_reply_t* reply)
{
    m_symbols.reset();
    if (reply == nullptr)
        return;
    m_symbols.emplace();
    m_symbols->firstKeyCode = xcb_get_setup(server())->min_keycode;
    m_symbols->symbolsPerKey = reply->keysyms_per_keycode;
    const auto* keySyms = xcb_get_keyboard_mapping_keysyms(reply);
    m_symbols->symbols.assign(keySyms, keySyms + xcb_get_keyboard_mapping_keysyms_length(reply));
}

void X11HotKeys::takeModifiers(const xcb_get_modifier_mapping_reply_t* reply)
{
    auto map = std::exchange(m_symbols, {});
    if (reply == nullptr || !map)
        return;
    map->keysPerModifier = reply->keycodes_per_modifier;
    const auto* keyCodes = xcb_get_modifier_mapping_keycodes(reply);
    map->modifierKeys.assign(keyCodes, keyCodes + xcb_get_modifier_mapping_keycodes_length(reply));
    m_keyMap = std::move(map);
    grabAll();
}

void X11HotKeys::takeGrabs()
{
    for (HotKey& hotKey : m_hotKeys) {
        if (hotKey.status == HotKeyStatus::pending) {
            hotKey.status = HotKeyStatus::registered;
            m_hasStateChanged = true;
        }
    }
}

void X11HotKeys::grabAll()
{
    // All before the first new one: keys may change places.
    for (HotKey& hotKey : m_hotKeys)
        ungrab(hotKey);
    for (HotKey& hotKey : m_hotKeys)
        grab(hotKey);
    m_grabsReply = m_connection->await(xcb_get_input_focus(server()).sequence, [this](const void*) { takeGrabs(); });
    m_connection->send();
}

void X11HotKeys::grab(HotKey& hotKey)
{
    if (!hotKey.keys)
        return;
    const std::uint16_t modifiers = modifiersOf(*hotKey.keys);
    for (const X11KeyMap::KeyCode key : m_keyMap->keysOf(hotKey.keys->letter)) {
        for (const std::uint16_t locks : m_keyMap->lockCombinations()) {
            const auto all = static_cast<std::uint16_t>(modifiers | locks);
            const auto cookie
                = xcb_grab_key(server(), 0, m_connection->root(), all, key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
            hotKey.grabs.push_back({.keyCode = key, .modifiers = all, .sequence = cookie.sequence});
        }
    }
    hotKey.status = hotKey.grabs.empty() ? HotKeyStatus::notAvailable : HotKeyStatus::pending;
}

void X11HotKeys::ungrab(HotKey& hotKey)
{
    for (const Grab& grab : std::exchange(hotKey.grabs, {})) {
        if (server() != nullptr)
            xcb_ungrab_key(server(), grab.keyCode, m_connection->root(), grab.modifiers);
    }
}

void X11HotKeys::lose()
{
    m_keyMap.reset();
    for (HotKey& hotKey : m_hotKeys) {
        hotKey.grabs.clear();
        hotKey.status = HotKeyStatus::notAvailable;
    }
    m_hasStateChanged = true;
}

} // namespace Tarvik
