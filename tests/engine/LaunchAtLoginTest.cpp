// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/LaunchAtLogin.h"

#include "core/AppSettings.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeSettingsStore.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class LaunchAtLoginTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void switchingRegistersAndUnregisters()
    {
        FakeLoginItem item;
        FakeSettingsStore store;
        AppSettings settings(store);
        changeLaunchAtLogin(item, settings, true);
        QVERIFY(item.enabled && settings.launchAtLogin());
        changeLaunchAtLogin(item, settings, false);
        QVERIFY(!item.enabled && !settings.launchAtLogin());
    }

    void aChangeBySomebodyElseIsShown()
    {
        FakeLoginItem item;
        FakeSettingsStore store;
        AppSettings settings(store);
        const Subscription following = followLaunchAtLogin(item, settings);
        QSignalSpy changed(&settings, &AppSettings::changed);
        item.enable(true);
        QVERIFY(settings.launchAtLogin());
        item.enable(true);
        QCOMPARE(changed.size(), 1);
        item.enable(false);
        QVERIFY(!settings.launchAtLogin());
    }

    void aFailureIsLoggedAndTheSettingShowsTheRealState()
    {
        FakeLoginItem item;
        item.error = u"read-only file system"_s;
        FakeSettingsStore store;
        AppSettings settings(store);
        expectLog(QtCriticalMsg, u"^Launch-at-login change failed: read-only file system$"_s);
        changeLaunchAtLogin(item, settings, true);
        QVERIFY(!settings.launchAtLogin());
        item.enabled = true;
        expectLog(QtCriticalMsg, u"^Launch-at-login change failed: read-only file system$"_s);
        changeLaunchAtLogin(item, settings, false);
        QVERIFY(settings.launchAtLogin());
    }
};

QTEST_GUILESS_MAIN(LaunchAtLoginTest)
#include "LaunchAtLoginTest.moc"
