// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusSignal.h"
#include "platform/HotKeys.h"

#include <vector>

namespace Tarvik {

/// Shortcuts among those that GNOME's user can make up, each a command that tells us of the key over the session bus:
/// for releases of GNOME that offer programs nothing better. Whether another shortcut has the same keys is not known.
class GnomeHotKeys final : public HotKeys {
public:
    explicit GnomeHotKeys(const QDBusConnection& sessionBus);

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override;

private:
    class Registration;

    void receivePress(const QDBusMessage& signal);

    std::vector<Registration*> m_registrations;
    DBusSignal m_presses;
};

} // namespace Tarvik
