// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusSignal.h"
#include "platform/HotKeys.h"

#include <QString>

#include <memory>
#include <vector>

namespace Tarvik {

/// Shortcuts of KDE's org.kde.KGlobalAccel, versions 5 and 6 of the frameworks. The user may change them in KDE's
/// settings, and the user's choice is what counts. For one owner of the name: after another one has taken over, make
/// a new object.
class KGlobalAccelHotKeys final : public HotKeys {
public:
    /// `owner` is the unique name of whoever owns org.kde.kglobalaccel; only it is asked, and believed.
    KGlobalAccelHotKeys(QDBusConnection sessionBus, QString owner);

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override;

private:
    class Registration;

    void receivePress(const QDBusMessage& signal);

    QDBusConnection m_bus;
    QString m_owner;
    std::vector<Registration*> m_registrations;
    DBusSignal m_presses;
};

} // namespace Tarvik
