// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hotkey/HotKey.h"

#include "hotkey/HotKeyCenter.h"

namespace Tarvik {

HotKey::HotKey(HotKeyCenter& center,
    std::uint32_t keyCode,
    std::uint32_t modifiers,
    std::function<void()> handler,
    const HotKeyPurpose& purpose)
    : m_center(center)
    , m_handler(std::move(handler))
    , m_id(center.enter(*this))
    , m_hotKeyRef(center.registerHotKey({.id = m_id, .keyCode = keyCode, .modifiers = modifiers, .purpose = purpose}))
{
}

HotKey::~HotKey()
{
    m_hotKeyRef.reset();
    m_center.remove(m_id);
}

void HotKey::press() const
{
    const auto handler = m_handler;
    if (handler)
        handler();
}

} // namespace Tarvik
