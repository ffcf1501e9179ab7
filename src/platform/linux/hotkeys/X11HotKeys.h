// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/HotKeys.h"
#include "platform/linux/hotkeys/KeyCombination.h"
#include "platform/linux/hotkeys/X11KeyMap.h"
#include "platform/linux/x11/X11Connection.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Tarvik {

/// Shortcuts as passive key grabs on the root window of an X server. Super is Mod4 and Alt is Mod1, as on every
/// desktop. When the server goes away, so do they; when it is back, they are grabbed again.
class X11HotKeys final : public HotKeys {
public:
    explicit X11HotKeys(std::shared_ptr<X11Connection> connection);
    X11HotKeys(const X11HotKeys&) = delete;
    X11HotKeys& operator=(const X11HotKeys&) = delete;

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override;

private:
    class Registration;

    struct Grab {
        X11KeyMap::KeyCode keyCode;
        std::uint16_t modifiers;
        /// Of the request that took it.
        unsigned int sequence;
    };
    struct HotKey {
        std::uint32_t id;
        std::optional<KeyCombination> keys;
        HotKeyStatus status;
        std::vector<Grab> grabs;
    };

    /// Null while there is no server.
    xcb_connection_t* server() const { return m_connection->get(); }
    /// Asks for everything of a server that knows nothing of us.
    void begin();
    HotKeyState state(std::uint32_t id) const;
    void remove(std::uint32_t id);

    void receive(const xcb_generic_event_t& event);
    void tellState();
    void takePress(const xcb_key_press_event_t& press);
    bool isRepetition(X11KeyMap::KeyCode key, std::uint32_t time);
    void takeRefusal(unsigned int sequence);
    void takeSymbols(const xcb_get_keyboard_mapping_reply_t* reply);
    void takeModifiers(const xcb_get_modifier_mapping_reply_t* reply);
    void takeGrabs();
    void requestKeyMap();
    void grabAll();
    void grab(HotKey& hotKey);
    void ungrab(HotKey& hotKey);
    void lose();

    std::shared_ptr<X11Connection> m_connection;
    std::vector<HotKey> m_hotKeys;
    std::optional<X11KeyMap> m_keyMap;
    /// Half of the next key map.
    std::optional<X11KeyMap> m_symbols;
    Subscription m_symbolsReply;
    Subscription m_modifiersReply;
    /// Says that the server has seen the grabs.
    Subscription m_grabsReply;
    X11KeyMap::KeyCode m_lastKey = 0;
    std::uint32_t m_lastPressTime = 0;
    bool m_hasStateChanged = false;
    Subscription m_events;
    Subscription m_settlements;
    Subscription m_arrivals;
    Subscription m_losses;
};

} // namespace Tarvik
