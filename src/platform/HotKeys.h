// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QString>

#include <cstdint>
#include <memory>

namespace Tarvik {

/// Virtual key codes as the Carbon event manager numbers them: positions on the ANSI keyboard.
namespace KeyCodes {
inline constexpr std::uint32_t ansiA = 0;
inline constexpr std::uint32_t ansiS = 1;
} // namespace KeyCodes

/// Modifier masks of the Carbon event manager. Command is the Super key, option is Alt.
namespace KeyModifiers {
inline constexpr std::uint32_t command = 0x100;
inline constexpr std::uint32_t shift = 0x200;
inline constexpr std::uint32_t option = 0x800;
inline constexpr std::uint32_t control = 0x1000;
} // namespace KeyModifiers

/// What a shortcut does, for the desktop that keeps it and for the user who finds it in the desktop's settings.
struct HotKeyPurpose {
    /// Names it in the desktop's files; must stay the same from release to release.
    QString name;
    QString description;

    bool operator==(const HotKeyPurpose&) const = default;
};

struct HotKeyRequest {
    /// Told by `HotKeys::pressed`; unique among the registrations.
    std::uint32_t id = 0;
    /// One of `KeyCodes`.
    std::uint32_t keyCode = 0;
    /// A combination of `KeyModifiers`.
    std::uint32_t modifiers = 0;
    HotKeyPurpose purpose;

    bool operator==(const HotKeyRequest&) const = default;
};

enum class HotKeyStatus {
    /// The desktop has not answered yet.
    pending,
    registered,
    /// Another program has the shortcut, or the user has taken it away.
    taken,
    /// Nobody here offers shortcuts, or not this one.
    notAvailable,
};

/// "pending", "registered", "taken by another program" or "not available", in the language of the user.
QString hotKeyStatusText(HotKeyStatus status);

/// How a shortcut is held, for people to read.
struct HotKeyState {
    /// Who delivers it: "KGlobalAccel", "X11", "desktop portal", "GNOME's custom shortcuts"; empty when nobody does.
    QString provider;
    HotKeyStatus status = HotKeyStatus::pending;

    bool operator==(const HotKeyState&) const = default;
};

/// One shortcut: wanted from its creation to its destruction.
class HotKeyRegistration {
public:
    virtual ~HotKeyRegistration() = default;

    virtual HotKeyState state() const = 0;
};

/// System-wide keyboard shortcuts, wherever the keyboard focus is. Must outlive its registrations.
class HotKeys {
public:
    virtual ~HotKeys() = default;

    /// Asks for a shortcut in the background. Not getting it is no error; its `state()` tells.
    [[nodiscard]] virtual std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) = 0;

    /// The keys of the registration with this id have been pressed; a key that is held may repeat.
    Signal<void(std::uint32_t id)> pressed;

    /// The state of some registration may have changed.
    Signal<void()> stateChanged;
};

} // namespace Tarvik
