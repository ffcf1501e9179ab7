// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeys.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <vector>

namespace Tarvik {

/// Shortcuts among those that GNOME's user can make up, each a command that tells us of the key over the session bus:
/// for releases of GNOME that offer programs nothing better. Whether another shortcut has the same keys is not known.
class GnomeHotKeys final : public QObject, public HotKeys {
    Q_OBJECT

public:
    explicit GnomeHotKeys(QDBusConnection sessionBus);
    ~GnomeHotKeys() override;

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override;

private Q_SLOTS:
    void receivePress(const QDBusMessage& signal);

private:
    class Registration;

    QDBusConnection m_bus;
    std::vector<Registration*> m_registrations;
};

} // namespace Tarvik
