// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/PropertyMirror.h"

#include "bus/ServedTarvik.h"
#include "dbus/contracts/TarvikWire.h"
#include "fakes/FakeTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/HooksMirror.h"
#include "ui/mirror/JournalMirror.h"
#include "ui/mirror/LidClosedMirror.h"
#include "ui/mirror/MirrorTestSupport.h"
#include "ui/mirror/SettingsMirror.h"
#include "ui/mirror/StatusMirror.h"
#include "ui/mirror/UpdaterMirror.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <algorithm>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class PropertyMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aTarvikThatVanishesIsLostAndFoundAgain()
    {
        auto tarvik = std::make_unique<ServedTarvik>();
        StatusMirror status(m_client);
        QTRY_VERIFY(status.isConnected());
        QSignalSpy lost(&status, &PropertyMirror::lost);
        tarvik->vanish();
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(!status.isConnected());
        QCOMPARE(status.subtitle(), u"Nothing running to keep awake for"_s);
        tarvik = nullptr;
        ServedTarvik again;
        again.machine.run("claude\n");
        QTRY_VERIFY(status.isConnected());
        QTRY_COMPARE(status.subtitle(), u"Claude Code"_s);
    }

    void withoutTarvikAMirrorIsLostFromTheStart()
    {
        StatusMirror status(m_client);
        QSignalSpy lost(&status, &PropertyMirror::lost);
        QTRY_COMPARE(lost.size(), 1);
        QVERIFY(!status.isConnected());
    }

    void everyMirrorSurvivesTarvik()
    {
        const auto tarvik = std::make_unique<ServedTarvik>();
        std::vector<std::unique_ptr<PropertyMirror>> mirrors = everyMirror();
        const auto areAll = [&](bool connected) {
            return std::ranges::all_of(
                mirrors, [connected](const auto& mirror) { return mirror->isConnected() == connected; });
        };
        QTRY_VERIFY(areAll(true));
        // The one thing that a mirror asks for by itself.
        QTRY_COMPARE(tarvik->updateDriver.preparations, 1);
        tarvik->vanish();
        QTRY_VERIFY(areAll(false));
        tarvik->appear();
        QTRY_VERIFY(areAll(true));
    }

    void whatIsAskedOfATarvikThatIsGoneIsNoFault()
    {
        SettingsMirror settings(m_client);
        LidClosedMirror lidClosed(m_client);
        lidClosed.refreshHelperStatus();
        settings.setKeepDisplayAwake(!settings.keepDisplayAwake());
        ServedTarvik tarvik;
        QTRY_VERIFY(lidClosed.isConnected());
    }

    void garbageIsLoggedAndChangesNothing()
    {
        FakeTarvik tarvik;
        tarvik.values
            = {{u"OnAC"_s, u"true"_s}, {u"BatteryPercent"_s, 12.5}, {u"HasBattery"_s, true}, {u"Colour"_s, 3}};
        QVERIFY(tarvik.appear());
        StatusMirror status(m_client);
        expectLog(QtWarningMsg, u"^Tarvik sent BatteryPercent as double$"_s);
        expectLog(QtWarningMsg, u"^Tarvik sent OnAC as QString$"_s);
        QTRY_VERIFY(status.isConnected());
        QCOMPARE(status.isOnAC(), true);
        QCOMPARE(status.batteryPercent(), QVariant());
        QCOMPARE(status.hasBattery(), true);
        expectLog(QtWarningMsg, u"^Tarvik sent HasBattery as int$"_s);
        tarvik.announce(TarvikWire::statusInterface, {{u"HasBattery"_s, 1}, {u"BatteryPercent"_s, 99}});
        QTRY_COMPARE(status.batteryPercent(), QVariant(99));
        QCOMPARE(status.hasBattery(), true);
        // Signals that do not even have the right arguments.
        tarvik.emitSignal(u"org.freedesktop.DBus.Properties"_s,
            u"PropertiesChanged"_s,
            {QString::fromLatin1(TarvikWire::statusInterface), 5});
        tarvik.announce(TarvikWire::statusInterface, {{u"BatteryPercent"_s, 98}});
        QTRY_COMPARE(status.batteryPercent(), QVariant(98));
    }

    void aTarvikThatDoesNotAnswerBlocksNothing()
    {
        FakeTarvik tarvik;
        int calls = 0;
        tarvik.handler = [&](const QDBusMessage& call) {
            ++calls;
            call.setDelayedReply(true);
            return QDBusMessage();
        };
        QVERIFY(tarvik.appear());
        QElapsedTimer elapsed;
        elapsed.start();
        const auto mirrors = everyMirror();
        SettingsMirror settings(m_client);
        settings.setIsEnabled(true);
        QCOMPARE(settings.isEnabled(), true);
        // QtDBus would wait for an answer for 25 seconds.
        QVERIFY(elapsed.elapsed() < 2000);
        QTRY_VERIFY(calls >= 6);
        QVERIFY(!settings.isConnected());
    }

private:
    std::vector<std::unique_ptr<PropertyMirror>> everyMirror() const
    {
        std::vector<std::unique_ptr<PropertyMirror>> mirrors;
        mirrors.push_back(std::make_unique<SettingsMirror>(m_client));
        mirrors.push_back(std::make_unique<StatusMirror>(m_client));
        mirrors.push_back(std::make_unique<JournalMirror>(m_client));
        mirrors.push_back(std::make_unique<HooksMirror>(m_client));
        mirrors.push_back(std::make_unique<UpdaterMirror>(m_client));
        return mirrors;
    }

    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(PropertyMirrorTest)
#include "PropertyMirrorTest.moc"
