// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"
#include "platform/linux/hotkeys/KeyCombination.h"
#include "platform/linux/hotkeys/X11KeyMap.h"
#include "platform/linux/x11/X11Connection.h"

#include <QByteArray>
#include <QObject>

#include <optional>
#include <vector>

namespace Tarvik {

/// Shortcuts as passive key grabs on the root window of an X server, on a connection of their own. Super is Mod4 and
/// Alt is Mod1, as on every desktop. When the server goes away, so do they; when it is back, they are grabbed again.
class X11HotKeys final : public QObject, public HotKeys {
    Q_OBJECT

public:
    /// `display` as in DISPLAY. Nothing when it cannot be reached. `clock` must outlive the object.
    static std::unique_ptr<X11HotKeys> connect(const QByteArray& display, Clock& clock);

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

    explicit X11HotKeys(std::unique_ptr<X11Connection> connection);

    /// Null while there is no server.
    xcb_connection_t* server() const { return m_connection->get(); }
    /// Asks for everything of a server that knows nothing of us.
    void begin();
    HotKeyState state(std::uint32_t id) const;
    void remove(std::uint32_t id);

    /// Everything that is to be read or sent, until there is no more of it.
    void process();
    void processSoon();
    bool takeEvents(std::vector<std::uint32_t>& presses);
    void takePress(
        X11KeyMap::KeyCode key, unsigned int modifiers, std::uint32_t time, std::vector<std::uint32_t>& presses);
    bool isRepetition(X11KeyMap::KeyCode key, std::uint32_t time);
    void takeRefusal(unsigned int sequence);
    bool takeKeyMap();
    bool takeGrabResults(std::vector<std::uint32_t>& presses);
    void requestKeyMap();
    void grabAll();
    void grab(HotKey& hotKey);
    void ungrab(HotKey& hotKey);
    void lose();

    std::unique_ptr<X11Connection> m_connection;
    std::vector<HotKey> m_hotKeys;
    std::optional<X11KeyMap> m_keyMap;
    /// Requests that wait for their reply, by sequence number; 0 is none.
    unsigned int m_symbolsRequest = 0;
    unsigned int m_modifiersRequest = 0;
    unsigned int m_grabsDoneRequest = 0;
    X11KeyMap::KeyCode m_lastKey = 0;
    std::uint32_t m_lastPressTime = 0;
    bool m_isProcessingScheduled = false;
    bool m_hasStateChanged = false;
};

} // namespace Tarvik
