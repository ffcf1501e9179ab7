// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/PowerMirror.h"

#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class PowerMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void powerIsShownAndFollowed()
    {
        ServedTarvik tarvik;
        PowerMirror power(m_client);
        QCOMPARE(power.batteryPercent(), QVariant());
        QTRY_VERIFY(power.isConnected());
        QVERIFY(power.isOnAC() && !power.hasBattery() && !power.lidClosed());
        QCOMPARE(power.batteryPercent(), QVariant());
        QSignalSpy percent(&power, &PowerMirror::batteryPercentChanged);
        tarvik.machine.setPower(false, 57);
        tarvik.machine.setPower(false, 56);
        QTRY_COMPARE(power.batteryPercent(), QVariant(56));
        QVERIFY(!power.isOnAC() && power.hasBattery());
        // What changed twice in one turn is told once.
        QCOMPARE(percent.size(), 1);
        tarvik.machine.setPower(true, {});
        QTRY_COMPARE(power.batteryPercent(), QVariant());
        QVERIFY(power.isOnAC() && !power.hasBattery());
    }

    void theLidIsShownWhileItIsWatched()
    {
        ServedTarvik tarvik;
        PowerMirror power(m_client);
        QTRY_VERIFY(power.isConnected());
        tarvik.machine.lid.closed = true;
        // It is watched while the computer is kept awake.
        tarvik.machine.run("claude\n");
        QTRY_VERIFY(power.lidClosed());
        tarvik.machine.run({});
        QTRY_VERIFY(!power.lidClosed());
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(PowerMirrorTest)
#include "PowerMirrorTest.moc"
