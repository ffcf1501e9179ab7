// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/AppSettings.h"

#include "core/AgentCatalogue.h"
#include "fakes/FakeSettingsStore.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class AppSettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aFreshStoreYieldsTheDefaults()
    {
        FakeSettingsStore store;
        const AppSettings settings(store);
        QCOMPARE(settings.keepDisplayAwake(), false);
        QCOMPARE(settings.launchAtLogin(), false);
        QCOMPARE(settings.isEnabled(), true);
        QCOMPARE(settings.watchAgents(), true);
        QCOMPARE(settings.watchEditors(), false);
        QCOMPARE(settings.requireAC(), false);
        QCOMPARE(settings.batteryLimitEnabled(), false);
        QCOMPARE(settings.batteryThreshold(), 20);
        QCOMPARE(settings.pauseWhenHot(), true);
        QCOMPARE(settings.enableOnAC(), true);
        QCOMPARE(settings.clamshellEnabled(), true);
        QCOMPARE(settings.screenOffOnLidClose(), true);
        QCOMPARE(settings.notifyOnToggle(), false);
        QCOMPARE(settings.notifyOnPause(), true);
        QVERIFY(settings.allowlist().isEmpty());
        QVERIFY2(store.writes.isEmpty(), "reading writes nothing back");
    }

    void whatSomebodyElseStoresIsTakenOverAndTold()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        QSignalSpy all(&settings, &AppSettings::changed);
        QSignalSpy threshold(&settings, &AppSettings::batteryThresholdChanged);
        // Every field is up to date when the first signal comes.
        connect(&settings, &AppSettings::isEnabledChanged, &settings, [&] {
            QCOMPARE(settings.batteryThreshold(), 45);
            QVERIFY(settings.requireAC());
        });
        QMap<QString, QVariant> values;
        for (const QString& key :
            {u"keepDisplayAwake"_s, u"watchEditors"_s, u"requireAC"_s, u"batteryLimitEnabled"_s, u"notifyOnToggle"_s})
            values[key] = true;
        for (const QString& key : {u"isEnabled"_s,
                 u"watchAgents"_s,
                 u"pauseWhenHot"_s,
                 u"enableOnAC"_s,
                 u"clamshellEnabled"_s,
                 u"screenOffOnLidClose"_s,
                 u"notifyOnPause"_s})
            values[key] = false;
        values[u"batteryThreshold"_s] = qint64{45};
        values[u"allowlist"_s] = encodeAllowlist({{u"org.blender"_s, u"Blender"_s}});
        store.replace(values);
        for (auto it = values.cbegin(); it != values.cend(); ++it) {
            if (it->metaType() == QMetaType::fromType<bool>())
                QCOMPARE(settings.property(it.key().toLatin1().constData()), *it);
        }
        QCOMPARE(settings.batteryThreshold(), 45);
        QCOMPARE(settings.allowlist(), (QList<AllowlistedApp>{{u"org.blender"_s, u"Blender"_s}}));
        QCOMPARE(all.size(), values.size());
        QCOMPARE(threshold.size(), 1);
        QVERIFY2(store.writes.isEmpty(), "nothing is written back");
    }

    void whatSomebodyElseStoresAndIsTheSameIsNotTold()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        settings.setRequireAC(true);
        settings.setLaunchAtLogin(true);
        QSignalSpy all(&settings, &AppSettings::changed);
        store.replace(store.values);
        QCOMPARE(all.size(), 0);
        QVERIFY(settings.launchAtLogin());
        // What is gone has its default again.
        store.replace({{u"clamshellOnboardingComplete"_s, true}});
        QVERIFY(!settings.requireAC() && !settings.clamshellEnabled());
        QCOMPARE(all.size(), 2);
    }

    void anOlderModeOfOffYieldsSwitchedOffAndNoLidClosedMode()
    {
        FakeSettingsStore store;
        store.values[u"keepAwakeMode"_s] = u"off"_s;
        const AppSettings settings(store);
        QCOMPARE(settings.isEnabled(), false);
        QCOMPARE(settings.clamshellEnabled(), false);
    }

    void anyOtherOlderModeYieldsSwitchedOn()
    {
        FakeSettingsStore store;
        store.values[u"keepAwakeMode"_s] = u"auto"_s;
        QCOMPARE(AppSettings(store).isEnabled(), true);
    }

    void theSwitchItselfWinsOverTheOlderMode()
    {
        FakeSettingsStore store;
        store.values[u"keepAwakeMode"_s] = u"off"_s;
        store.values[u"isEnabled"_s] = true;
        QCOMPARE(AppSettings(store).isEnabled(), true);
    }

    void anExistingInstallationStartsWithoutLidClosedMode_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("onboarding was finished") << u"clamshellOnboardingComplete"_s << QVariant(false);
        QTest::newRow("older mode") << u"keepAwakeMode"_s << QVariant(u"auto"_s);
        QTest::newRow("older agent list") << u"enabledAgentIDs"_s << QVariant(QByteArray("[]"));
        QTest::newRow("allow-list") << u"allowlist"_s << QVariant(QByteArray("[]"));
    }

    void anExistingInstallationStartsWithoutLidClosedMode()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, value);
        FakeSettingsStore store;
        store.values[key] = value;
        QCOMPARE(AppSettings(store).clamshellEnabled(), false);
    }

    void aStoredLidClosedModeWinsOverTheFirstRunRule()
    {
        FakeSettingsStore store;
        store.values[u"keepAwakeMode"_s] = u"auto"_s;
        store.values[u"clamshellEnabled"_s] = true;
        QCOMPARE(AppSettings(store).clamshellEnabled(), true);
    }

    void aThresholdStoredAsAStringYieldsTheDefault()
    {
        FakeSettingsStore store;
        store.values[u"batteryThreshold"_s] = u"35"_s;
        QCOMPARE(AppSettings(store).batteryThreshold(), 20);
    }

    void aThresholdBeyondAnyPercentageIsNotClamped()
    {
        FakeSettingsStore store;
        store.values[u"batteryThreshold"_s] = qint64{250};
        QCOMPARE(AppSettings(store).batteryThreshold(), 250);
    }

    void aThresholdThatNoIntegerHoldsYieldsTheDefault()
    {
        FakeSettingsStore store;
        store.values[u"batteryThreshold"_s] = qint64{1} << 40;
        QCOMPARE(AppSettings(store).batteryThreshold(), 20);
    }

    void valuesOfAnotherTypeYieldTheDefaults_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("expected");
        QTest::newRow("plain flag") << u"keepDisplayAwake"_s << false;
        QTest::newRow("flag that defaults to true") << u"pauseWhenHot"_s << true;
    }

    void valuesOfAnotherTypeYieldTheDefaults()
    {
        QFETCH(QString, key);
        QFETCH(bool, expected);
        for (const QVariant& wrong :
            {QVariant(u"true"_s), QVariant(u"false"_s), QVariant(qint64{1}), QVariant(qint64{0})}) {
            FakeSettingsStore store;
            store.values[key] = wrong;
            const AppSettings settings(store);
            QCOMPARE(settings.property(key.toLatin1().constData()).toBool(), expected);
        }
    }

    void everyFlagIsReadAndWrittenUnderItsName_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"keepDisplayAwake",
                 "isEnabled",
                 "watchAgents",
                 "watchEditors",
                 "requireAC",
                 "batteryLimitEnabled",
                 "pauseWhenHot",
                 "enableOnAC",
                 "clamshellEnabled",
                 "screenOffOnLidClose",
                 "notifyOnToggle",
                 "notifyOnPause"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void everyFlagIsReadAndWrittenUnderItsName()
    {
        QFETCH(QString, name);
        const QByteArray property = name.toLatin1();
        for (const bool value : {true, false}) {
            FakeSettingsStore store;
            store.values[name] = value;
            AppSettings settings(store);
            QCOMPARE(settings.property(property.constData()).toBool(), value);

            const QMetaProperty meta
                = settings.metaObject()->property(settings.metaObject()->indexOfProperty(property.constData()));
            QSignalSpy notified(&settings, meta.notifySignal());
            QSignalSpy changed(&settings, &AppSettings::changed);
            QVERIFY(settings.setProperty(property.constData(), !value));
            QCOMPARE(store.values[name], QVariant(!value));
            QCOMPARE(store.writes, QStringList{name});
            QCOMPARE(notified.count(), 1);
            QCOMPARE(changed.count(), 1);
        }
    }

    void aThresholdIsWrittenAsAnInteger()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        settings.setBatteryThreshold(45);
        QCOMPARE(store.integer(u"batteryThreshold"_s), 45);
        QCOMPARE(AppSettings(store).batteryThreshold(), 45);
    }

    void launchAtLoginIsNeverStored()
    {
        FakeSettingsStore store;
        store.values[u"launchAtLogin"_s] = true;
        AppSettings settings(store);
        QCOMPARE(settings.launchAtLogin(), false);
        QSignalSpy changed(&settings, &AppSettings::changed);
        settings.setLaunchAtLogin(true);
        QCOMPARE(changed.count(), 1);
        QVERIFY(store.writes.isEmpty());
    }

    void addingAnAppAppendsAndSavesTheWholeList()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        settings.addToAllowlist(u"org.gnome.Maps"_s, u"Maps"_s);
        settings.addToAllowlist(u"org.kde.kdenlive"_s, u"Kdenlive 4"_s);
        QCOMPARE(store.data(u"allowlist"_s),
            QByteArray(R"([{"bundleID":"org.gnome.Maps","name":"Maps"},)"
                       R"({"bundleID":"org.kde.kdenlive","name":"Kdenlive 4"}])"));
        QCOMPARE(AppSettings(store).allowlist(), settings.allowlist());
    }

    void addingAListedAppAgainChangesAndWritesNothing()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        settings.addToAllowlist(u"org.gnome.Maps"_s, u"Maps"_s);
        store.writes.clear();
        QSignalSpy changed(&settings, &AppSettings::changed);
        settings.addToAllowlist(u"org.gnome.Maps"_s, u"Karten"_s);
        QCOMPARE(settings.allowlist(), (QList<AllowlistedApp>{{u"org.gnome.Maps"_s, u"Maps"_s}}));
        QVERIFY(store.writes.isEmpty());
        QCOMPARE(changed.count(), 0);
    }

    void identifiersThatDifferInCaseAreDifferentApps()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        settings.addToAllowlist(u"org.gnome.Maps"_s, u"Maps"_s);
        settings.addToAllowlist(u"org.gnome.maps"_s, u"Maps"_s);
        QCOMPARE(settings.allowlist().size(), 2);
    }

    void replacingTheListRemovesAnAppAndSaves()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        settings.addToAllowlist(u"org.gnome.Maps"_s, u"Maps"_s);
        settings.setAllowlist({});
        QCOMPARE(store.data(u"allowlist"_s), QByteArray("[]"));
    }

    void anUndecodableAllowlistIsEmptyAndStaysStored_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("not JSON") << QByteArray("{[");
        QTest::newRow("not an array") << QByteArray("{}");
        QTest::newRow("not objects") << QByteArray("[1]");
        QTest::newRow("a key is missing") << QByteArray(R"([{"bundleID":"a","name":"A"},{"bundleID":"b"}])");
        QTest::newRow("a key of another case") << QByteArray(R"([{"bundleId":"a","name":"A"}])");
        QTest::newRow("a name that is no string") << QByteArray(R"([{"bundleID":"a","name":null}])");
        QTest::newRow("empty") << QByteArray("");
    }

    void anUndecodableAllowlistIsEmptyAndStaysStored()
    {
        QFETCH(QByteArray, bytes);
        FakeSettingsStore store;
        store.values[u"allowlist"_s] = bytes;
        const AppSettings settings(store);
        QVERIFY(settings.allowlist().isEmpty());
        QCOMPARE(store.data(u"allowlist"_s), bytes);
        QVERIFY(store.writes.isEmpty());
    }

    void anAllowlistWithFurtherKeysIsAccepted()
    {
        FakeSettingsStore store;
        store.values[u"allowlist"_s] = QByteArray(R"([{"bundleID":"a","name":"A","icon":"x"}])");
        QCOMPARE(AppSettings(store).allowlist(), (QList<AllowlistedApp>{{u"a"_s, u"A"_s}}));
    }

    void watchedPresetsAreAgentsThenEditorsAsSwitched()
    {
        FakeSettingsStore store;
        AppSettings settings(store);
        QCOMPARE(settings.watchedPresets(), AgentCatalogue::agents());
        settings.setWatchEditors(true);
        QCOMPARE(settings.watchedPresets(), AgentCatalogue::agents() + AgentCatalogue::editors());
        settings.setWatchAgents(false);
        QCOMPARE(settings.watchedPresets(), AgentCatalogue::editors());
        settings.setWatchEditors(false);
        QVERIFY(settings.watchedPresets().isEmpty());
    }
};

QTEST_GUILESS_MAIN(AppSettingsTest)
#include "AppSettingsTest.moc"
