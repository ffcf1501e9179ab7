// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hotkey/HotKeyCenter.h"

#include "hotkey/HotKey.h"

#include <limits>

namespace Tarvik {

HotKeyCenter::HotKeyCenter(HotKeys& hotKeys, std::uint32_t nextId)
    : m_hotKeys(hotKeys)
    , m_nextId(nextId)
    , m_presses(hotKeys.pressed.subscribe([this](std::uint32_t id) { deliver(id); }))
{
}

std::uint32_t HotKeyCenter::enter(HotKey& hotKey)
{
    if (m_nextId == std::numeric_limits<std::uint32_t>::max())
        qFatal("there are no more hot key ids");
    const std::uint32_t id = m_nextId++;
    m_registry.emplace(id, &hotKey);
    return id;
}

void HotKeyCenter::remove(std::uint32_t id)
{
    m_registry.erase(id);
}

std::unique_ptr<HotKeyRegistration> HotKeyCenter::registerHotKey(const HotKeyRequest& request)
{
    return m_hotKeys.registerHotKey(request);
}

void HotKeyCenter::deliver(std::uint32_t id) const
{
    const auto it = m_registry.find(id);
    if (it != m_registry.end())
        it->second->press();
}

} // namespace Tarvik
