// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace Tarvik {

class HotKeyCenter;

/// One system-wide shortcut from construction to destruction. If another program holds it, it never fires.
class HotKey final {
public:
    /// `keyCode` and `modifiers` are in Carbon's terms, HotKeys.h. `center` must outlive the shortcut.
    HotKey(HotKeyCenter& center,
        std::uint32_t keyCode,
        std::uint32_t modifiers,
        std::function<void()> handler,
        const HotKeyPurpose& purpose);
    ~HotKey();
    HotKey(const HotKey&) = delete;
    HotKey& operator=(const HotKey&) = delete;

    /// Unique among the shortcuts of the center.
    std::uint32_t id() const { return m_id; }
    HotKeyState state() const { return m_hotKeyRef->state(); }

    /// Runs the handler, which may destroy the shortcut.
    void press() const;

private:
    HotKeyCenter& m_center;
    std::function<void()> m_handler;
    std::uint32_t m_id;
    std::unique_ptr<HotKeyRegistration> m_hotKeyRef;
};

} // namespace Tarvik
