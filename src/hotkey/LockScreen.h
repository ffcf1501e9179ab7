// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <cstdint>

namespace Tarvik {

class ScreenLock;

/// The shortcut that locks the screen: Command-Option-A.
namespace LockShortcut {
inline constexpr std::uint32_t keyCode = KeyCodes::ansiA;
inline constexpr std::uint32_t modifiers = KeyModifiers::command | KeyModifiers::option;
HotKeyPurpose purpose();
} // namespace LockShortcut

/// Locks the screen at once; a failure is logged and has no other effect.
void lockScreen(ScreenLock& screenLock);

} // namespace Tarvik
