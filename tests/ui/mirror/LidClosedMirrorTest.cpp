// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/LidClosedMirror.h"

#include "bus/ServedTarvik.h"
#include "engine/SteeredMachine.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class LidClosedMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void thereIsALidUntilItIsKnownThatThereIsNone()
    {
        LidClosedMirror lidClosed(m_client);
        QVERIFY(lidClosed.hasLid());
        QVERIFY(!lidClosed.clamshellActive() && !lidClosed.helperInstalled() && !lidClosed.helperNeedsApproval());
        QCOMPARE(lidClosed.lastHelperError(), QString());
        ServedTarvik tarvik;
        QTRY_VERIFY(lidClosed.isConnected());
        QVERIFY(lidClosed.hasLid());
        QVERIFY(SteeredMachine(tarvik.machine).play(u"lid none"_s));
        QTRY_VERIFY(!lidClosed.hasLid());
    }

    void theHelperIsFollowed()
    {
        ServedTarvik tarvik;
        SteeredMachine machine(tarvik.machine);
        LidClosedMirror lidClosed(m_client);
        QTRY_VERIFY(lidClosed.isConnected());
        QSignalSpy installed(&lidClosed, &LidClosedMirror::helperInstalledChanged);
        QSignalSpy error(&lidClosed, &LidClosedMirror::lastHelperErrorChanged);
        QVERIFY(machine.play(u"helper unapproved"_s) && machine.play(u"install-helper"_s));
        QTRY_COMPARE(lidClosed.lastHelperError(), u"Approve Tarvik in System Settings ▸ Login Items."_s);
        QVERIFY(lidClosed.helperNeedsApproval());
        QVERIFY(machine.play(u"helper installed"_s));
        QVERIFY(machine.play(u"work on"_s));
        QTRY_VERIFY(lidClosed.clamshellActive());
        QCOMPARE(installed.size(), 1);
        QTRY_COMPARE(error.size(), 2);
        QVERIFY(lidClosed.helperInstalled() && !lidClosed.helperNeedsApproval());
        QCOMPARE(lidClosed.lastHelperError(), QString());
    }

    void everyRequestIsPassedOn()
    {
        ServedTarvik tarvik;
        QStringList requests;
        tarvik.object->onMessage = [&requests](const QDBusMessage& message) {
            if (message.interface() == QLatin1String(TarvikWire::lidClosedInterface))
                requests.append(message.member());
        };
        LidClosedMirror lidClosed(m_client);
        lidClosed.installHelper();
        lidClosed.reinstallHelper();
        lidClosed.refreshHelperStatus();
        lidClosed.finishOnboarding();
        lidClosed.relaunch();
        QTRY_COMPARE(requests,
            (QStringList{u"InstallHelper"_s,
                u"ReinstallHelper"_s,
                u"RefreshHelperStatus"_s,
                u"FinishOnboarding"_s,
                u"Relaunch"_s}));
        settle(m_client);
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(LidClosedMirrorTest)
#include "LidClosedMirrorTest.moc"
