// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <cstdint>
#include <functional>

namespace Tarvik {

class ScreenLock;

/// The shortcut that locks the screen: Command-Option-A.
namespace LockShortcut {
inline constexpr std::uint32_t keyCode = KeyCodes::ansiA;
inline constexpr std::uint32_t modifiers = KeyModifiers::command | KeyModifiers::option;
HotKeyPurpose purpose();
} // namespace LockShortcut

/// Locks the screen at once. A failure is logged and, because whoever has asked for it is about to walk away, handed to
/// `tell` as the title and the body of a notification.
void lockScreen(ScreenLock& screenLock, std::function<void(const QString& title, const QString& body)> tell);

} // namespace Tarvik
