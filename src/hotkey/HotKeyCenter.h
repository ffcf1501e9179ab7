// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <cstdint>
#include <map>
#include <memory>

namespace Tarvik {

class HotKey;

/// The shortcuts that may receive presses, by their ids. An object rather than statics of HotKey, so that whoever
/// builds the application says which desktop the presses come from. Must outlive its HotKeys.
class HotKeyCenter final {
public:
    /// Listens to `hotKeys`, which must outlive the center. `nextId` is the number of the first shortcut.
    explicit HotKeyCenter(HotKeys& hotKeys, std::uint32_t nextId = 1);
    HotKeyCenter(const HotKeyCenter&) = delete;
    HotKeyCenter& operator=(const HotKeyCenter&) = delete;

    /// Enters `hotKey` and gives it its id. Ends the program when there are no more ids.
    std::uint32_t enter(HotKey& hotKey);
    void remove(std::uint32_t id);

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request);

private:
    void deliver(std::uint32_t id) const;

    HotKeys& m_hotKeys;
    std::uint32_t m_nextId;
    std::map<std::uint32_t, HotKey*> m_registry;
    Subscription m_presses;
};

} // namespace Tarvik
