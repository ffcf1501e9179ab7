// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/UpdaterMirror.h"

#include "bus/ServedTarvik.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QDateTime>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class UpdaterMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theUpdaterIsShownAndUsed()
    {
        ServedTarvik tarvik;
        UpdaterMirror updater(m_client);
        QTRY_VERIFY(updater.isConnected());
        QCOMPARE(updater.lastUpdateCheckDate(), QVariant());
        QVERIFY(!updater.canCheckForUpdates());
        QTRY_COMPARE(tarvik.updateDriver.preparations, 1);
        QCOMPARE(updater.updateChannel(), u"unknown"_s);
        tarvik.updateDriver.becomeAvailable();
        QTRY_VERIFY(updater.canCheckForUpdates());
        QCOMPARE(updater.updateChannel(), u"available"_s);
        updater.setAutomaticallyDownloadsUpdates(true);
        updater.setAutomaticallyChecksForUpdates(true);
        updater.checkForUpdates();
        QTRY_COMPARE(tarvik.updateDriver.started.size(), 1);
        QVERIFY(tarvik.updater->automaticallyChecksForUpdates() && tarvik.updater->automaticallyDownloadsUpdates());
        QTRY_VERIFY(!updater.canCheckForUpdates());
        tarvik.updateDriver.finish(true);
        QTRY_VERIFY(updater.canCheckForUpdates());
        QCOMPARE(updater.lastUpdateCheckDate().toDateTime().toSecsSinceEpoch(), 1'700'000'000);
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(UpdaterMirrorTest)
#include "UpdaterMirrorTest.moc"
