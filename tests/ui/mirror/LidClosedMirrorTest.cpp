// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/LidClosedMirror.h"

#include "fakes/FakeTarvikObject.h"
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
        m_tarvik.change(TarvikWire::lidClosedInterface, {{u"hasLid"_s, false}});
        QVERIFY(m_tarvik.appear());
        QTRY_VERIFY(lidClosed.isConnected());
        QVERIFY(!lidClosed.hasLid());
    }

    void theHelperIsFollowed()
    {
        QVERIFY(m_tarvik.appear());
        LidClosedMirror lidClosed(m_client);
        QTRY_VERIFY(lidClosed.isConnected());
        QSignalSpy installed(&lidClosed, &LidClosedMirror::helperInstalledChanged);
        QSignalSpy error(&lidClosed, &LidClosedMirror::lastHelperErrorChanged);
        m_tarvik.change(TarvikWire::lidClosedInterface,
            {{u"helperNeedsApproval"_s, true}, {u"lastHelperError"_s, u"Approve it."_s}});
        QTRY_COMPARE(lidClosed.lastHelperError(), u"Approve it."_s);
        QVERIFY(lidClosed.helperNeedsApproval());
        m_tarvik.change(TarvikWire::lidClosedInterface,
            {{u"helperInstalled"_s, true},
                {u"helperNeedsApproval"_s, false},
                {u"lastHelperError"_s, QString()},
                {u"clamshellActive"_s, true}});
        QTRY_COMPARE(installed.size(), 1);
        QTRY_COMPARE(error.size(), 2);
        QTRY_VERIFY(lidClosed.clamshellActive());
        QVERIFY(lidClosed.helperInstalled() && !lidClosed.helperNeedsApproval());
        QCOMPARE(lidClosed.lastHelperError(), QString());
    }

    void everyRequestIsPassedOn()
    {
        QVERIFY(m_tarvik.appear());
        LidClosedMirror lidClosed(m_client);
        lidClosed.installHelper();
        lidClosed.reinstallHelper();
        lidClosed.refreshHelperStatus();
        lidClosed.finishOnboarding();
        lidClosed.relaunch();
        QTRY_COMPARE(m_tarvik.asked,
            (QStringList{u"InstallHelper"_s,
                u"ReinstallHelper"_s,
                u"RefreshHelperStatus"_s,
                u"FinishOnboarding"_s,
                u"Relaunch"_s}));
        settle(m_client);
    }

    void cleanup()
    {
        m_tarvik.vanish();
        m_tarvik.asked.clear();
    }

private:
    QDBusConnection m_client = mirrorConnection();
    FakeTarvikObject m_tarvik{QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"tarvik"_s)};
};

QTEST_GUILESS_MAIN(LidClosedMirrorTest)
#include "LidClosedMirrorTest.moc"
