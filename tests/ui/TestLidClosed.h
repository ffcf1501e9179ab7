// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeTarvikObject.h"
#include "support/TestSupport.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/SettingsMirror.h"

namespace Tarvik {

/// What the windows show of lid-closed mode, as a QML test sets it: helpers come and fail as it wants them. What is set
/// has reached the windows when the call is over.
class TestLidClosed : public QObject {
    Q_OBJECT
    Q_PROPERTY(Tarvik::LidClosedMirror* lidClosed READ lidClosed CONSTANT)
    Q_PROPERTY(Tarvik::SettingsMirror* settings READ settings CONSTANT)

public:
    LidClosedMirror* lidClosed() { return &m_lidClosed; }
    SettingsMirror* settings() { return &m_settings; }

    /// A computer with a lid and without a helper, where nobody has asked for anything yet.
    Q_INVOKABLE void restart()
    {
        m_tarvik.vanish();
        waitFor([this] { return !m_lidClosed.isConnected() && !m_settings.isConnected(); });
        setHelper(false, false, {});
        setLid(true);
        setMode(false, true);
        if (!m_tarvik.appear())
            qFatal("There is another Tarvik.");
        waitFor([this] { return m_lidClosed.isConnected() && m_settings.isConnected(); });
        m_tarvik.asked.clear();
    }

    Q_INVOKABLE void setHelper(bool isInstalled, bool needsApproval, const QString& error)
    {
        change({{QStringLiteral("helperInstalled"), isInstalled},
            {QStringLiteral("helperNeedsApproval"), needsApproval},
            {QStringLiteral("lastHelperError"), error}});
    }
    Q_INVOKABLE void setLid(bool isThere) { change({{QStringLiteral("hasLid"), isThere}}); }
    Q_INVOKABLE void setMode(bool isOn, bool turnsScreenOff)
    {
        m_tarvik.change(TarvikWire::settingsInterface,
            {{QStringLiteral("clamshellEnabled"), isOn}, {QStringLiteral("screenOffOnLidClose"), turnsScreenOff}});
        waitFor([=, this] {
            return !m_settings.isConnected()
                || (m_settings.clamshellEnabled() == isOn && m_settings.screenOffOnLidClose() == turnsScreenOff);
        });
    }

    /// The methods that were called, and the properties that were set as "NAME=VALUE".
    Q_INVOKABLE QStringList asked() const { return m_tarvik.asked; }

private:
    void change(const QVariantMap& values)
    {
        m_tarvik.change(TarvikWire::lidClosedInterface, values);
        waitFor([&, this] {
            for (auto value = values.begin(); value != values.end(); ++value) {
                if (m_lidClosed.isConnected() && m_lidClosed.property(value.key().toLatin1().constData()) != *value)
                    return false;
            }
            return true;
        });
    }

    static void waitFor(const std::function<bool()>& condition)
    {
        if (!QTest::qWaitFor(condition, patience))
            qFatal("Tarvik has not arrived.");
    }

    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("client"));
    FakeTarvikObject m_tarvik{QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("lid"))};
    LidClosedMirror m_lidClosed{m_bus};
    SettingsMirror m_settings{m_bus};
};

} // namespace Tarvik
