// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11HotKeys.h"

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); } // NOLINT(cppcoreguidelines-no-malloc)
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// The reply to `request` once it is there, also when it is an error and so null.
template <typename Reply>
std::optional<Owned<Reply>> pollReply(xcb_connection_t* connection, unsigned int request)
{
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (request == 0 || xcb_poll_for_reply(connection, request, &reply, &error) == 0)
        return std::nullopt;
    std::free(error); // NOLINT(cppcoreguidelines-no-malloc)
    return Owned<Reply>(static_cast<Reply*>(reply));
}

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

std::unique_ptr<X11HotKeys> X11HotKeys::connect(const QByteArray& display, Clock& clock)
{
    auto connection = X11Connection::open(display, clock);
    return connection ? std::unique_ptr<X11HotKeys>(new X11HotKeys(std::move(connection))) : nullptr;
}

X11HotKeys::X11HotKeys(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
{
    m_connection->onReadable = [this] { process(); };
    m_connection->onBack = [this] { begin(); };
    begin();
}

void X11HotKeys::begin()
{
    for (HotKey& hotKey : m_hotKeys) {
        if (hotKey.keys)
            hotKey.status = HotKeyStatus::pending;
        m_hasStateChanged = true;
    }
    requestKeyMap();
    processSoon();
}

std::unique_ptr<HotKeyRegistration> X11HotKeys::registerHotKey(const HotKeyRequest& request)
{
    const auto keys = KeyCombination::fromCarbon(request.keyCode, request.modifiers);
    const bool isPossible = server() != nullptr && keys;
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
    processSoon();
}

void X11HotKeys::process()
{
    m_isProcessingScheduled = false;
    if (server() == nullptr)
        return;
    std::vector<std::uint32_t> presses;
    bool isIdle = false;
    while (!isIdle) {
        // Sending may take in what the server has sent, of which the notifier then hears nothing.
        xcb_flush(server());
        const bool hadEvents = takeEvents(presses);
        const bool hadKeyMap = takeKeyMap();
        const bool hadGrabResults = takeGrabResults(presses);
        isIdle = !hadEvents && !hadKeyMap && !hadGrabResults;
    }
    if (xcb_connection_has_error(server()) != 0)
        lose();
    if (std::exchange(m_hasStateChanged, false))
        stateChanged();
    for (const std::uint32_t id : presses) {
        pressed(id);
    }
}

void X11HotKeys::processSoon()
{
    if (!std::exchange(m_isProcessingScheduled, true))
        QMetaObject::invokeMethod(
            this, [this] { process(); }, Qt::QueuedConnection);
}

bool X11HotKeys::takeEvents(std::vector<std::uint32_t>& presses)
{
    bool hadSome = false;
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(server())}) {
        hadSome = true;
        if (event->response_type == 0) {
            takeRefusal(event->full_sequence);
        } else if (event->response_type == XCB_KEY_PRESS) {
            // What a program has sent, and not the keyboard, has another bit set.
            const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(*event);
            takePress(press.detail, press.state & modifierBits, press.time, presses);
        } else if (event->response_type == XCB_MAPPING_NOTIFY) {
            if (reinterpret_cast<const xcb_mapping_notify_event_t&>(*event).request != XCB_MAPPING_POINTER)
                requestKeyMap();
        }
    }
    return hadSome;
}

void X11HotKeys::takePress(
    X11KeyMap::KeyCode key, unsigned int modifiers, std::uint32_t time, std::vector<std::uint32_t>& presses)
{
    // The press has brought the whole keyboard to us until the key is released. A screen locker that wants the keyboard
    // would be refused until then.
    xcb_ungrab_keyboard(server(), XCB_CURRENT_TIME);
    const auto isHit = [&](const Grab& grab) { return grab.keyCode == key && grab.modifiers == modifiers; };
    const auto it = std::ranges::find_if(
        m_hotKeys, [&](const HotKey& hotKey) { return std::ranges::any_of(hotKey.grabs, isHit); });
    if (it != m_hotKeys.end() && !isRepetition(key, time))
        presses.push_back(it->id);
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

bool X11HotKeys::takeKeyMap()
{
    // The server answers in the order of the requests.
    const auto modifiers = pollReply<xcb_get_modifier_mapping_reply_t>(server(), m_modifiersRequest);
    if (!modifiers)
        return false;
    const auto symbols = pollReply<xcb_get_keyboard_mapping_reply_t>(server(), m_symbolsRequest);
    m_modifiersRequest = 0;
    m_symbolsRequest = 0;
    if (!symbols || !*symbols || !*modifiers)
        return true;
    X11KeyMap map;
    map.firstKeyCode = xcb_get_setup(server())->min_keycode;
    map.symbolsPerKey = (*symbols)->keysyms_per_keycode;
    const auto* keySyms = xcb_get_keyboard_mapping_keysyms(symbols->get());
    map.symbols.assign(keySyms, keySyms + xcb_get_keyboard_mapping_keysyms_length(symbols->get()));
    map.keysPerModifier = (*modifiers)->keycodes_per_modifier;
    const auto* keyCodes = xcb_get_modifier_mapping_keycodes(modifiers->get());
    map.modifierKeys.assign(keyCodes, keyCodes + xcb_get_modifier_mapping_keycodes_length(modifiers->get()));
    m_keyMap = std::move(map);
    grabAll();
    return true;
}

bool X11HotKeys::takeGrabResults(std::vector<std::uint32_t>& presses)
{
    const auto reply = pollReply<xcb_get_input_focus_reply_t>(server(), m_grabsDoneRequest);
    if (!reply)
        return false;
    m_grabsDoneRequest = 0;
    // The refusals come before this reply, but those that came with it are still in the queue.
    takeEvents(presses);
    for (HotKey& hotKey : m_hotKeys) {
        if (hotKey.status == HotKeyStatus::pending) {
            hotKey.status = HotKeyStatus::registered;
            m_hasStateChanged = true;
        }
    }
    return true;
}

void X11HotKeys::requestKeyMap()
{
    for (const unsigned int request : {std::exchange(m_symbolsRequest, 0), std::exchange(m_modifiersRequest, 0)}) {
        if (request != 0)
            xcb_discard_reply(server(), request);
    }
    const xcb_setup_t& setup = *xcb_get_setup(server());
    const auto count = static_cast<std::uint8_t>(setup.max_keycode - setup.min_keycode + 1);
    m_symbolsRequest = xcb_get_keyboard_mapping(server(), setup.min_keycode, count).sequence;
    m_modifiersRequest = xcb_get_modifier_mapping(server()).sequence;
}

void X11HotKeys::grabAll()
{
    if (m_grabsDoneRequest != 0)
        xcb_discard_reply(server(), m_grabsDoneRequest);
    // All before the first new one: keys may change places.
    for (HotKey& hotKey : m_hotKeys)
        ungrab(hotKey);
    for (HotKey& hotKey : m_hotKeys)
        grab(hotKey);
    // Its reply says that the server has seen the grabs.
    m_grabsDoneRequest = xcb_get_input_focus(server()).sequence;
    processSoon();
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
    m_connection->lose();
    m_keyMap.reset();
    m_symbolsRequest = 0;
    m_modifiersRequest = 0;
    m_grabsDoneRequest = 0;
    for (HotKey& hotKey : m_hotKeys) {
        hotKey.grabs.clear();
        hotKey.status = HotKeyStatus::notAvailable;
    }
    m_hasStateChanged = true;
}

} // namespace Tarvik
