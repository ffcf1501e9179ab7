// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/SettingsMirror.h"

#include "bus/ServedTarvik.h"
#include "engine/SteeredMachine.h"
#include "support/TestSupport.h"
#include "ui/mirror/MirrorTestSupport.h"

#include <QMetaProperty>
#include <QSignalSpy>

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class SettingsMirrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theMirrorShowsWhatTarvikShows()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        const QMetaObject& model = AppSettings::staticMetaObject;
        for (int index = model.propertyOffset(); index < model.propertyCount(); ++index) {
            const char* name = model.property(index).name();
            QVERIFY(settings.property(name).isValid());
            QCOMPARE(settings.property(name), tarvik.machine.settings->property(name));
        }
    }

    void aWrittenSettingShowsAtOnceAndIsStoredByTarvik()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        QSignalSpy changed(&settings, &SettingsMirror::isEnabledChanged);
        settings.setIsEnabled(false);
        QCOMPARE(settings.isEnabled(), false);
        QCOMPARE(changed.size(), 1);
        QTRY_COMPARE(tarvik.machine.settings->isEnabled(), false);
        settle(m_client);
        QCOMPARE(settings.isEnabled(), false);
        QCOMPARE(changed.size(), 1);
    }

    void theLastOfTwoQuickWritesHolds()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        QSignalSpy changed(&settings, &SettingsMirror::isEnabledChanged);
        QSignalSpy stored(&*tarvik.machine.settings, &AppSettings::isEnabledChanged);
        settings.setIsEnabled(false);
        settings.setIsEnabled(true);
        settings.setIsEnabled(false);
        QTRY_COMPARE(stored.size(), 3);
        settle(m_client);
        QCOMPARE(settings.isEnabled(), false);
        QCOMPARE(changed.size(), 3);
    }

    void aValueThatTarvikRefusesIsTakenBack_data()
    {
        QTest::addColumn<int>("percent");
        QTest::newRow("below nothing") << -1;
        QTest::newRow("more than all") << 101;
    }

    void aValueThatTarvikRefusesIsTakenBack()
    {
        QFETCH(int, percent);
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        expectLog(QtWarningMsg, u"^batteryThreshold was not set: A battery level is a percentage from 0 to 100\\.$"_s);
        settings.setBatteryThreshold(percent);
        QCOMPARE(settings.batteryThreshold(), percent);
        QTRY_COMPARE(settings.batteryThreshold(), 20);
        QCOMPARE(tarvik.machine.settings->batteryThreshold(), 20);
    }

    void settingsThatTakeMoreThanStoringAreHandedOn()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        const bool before = settings.launchAtLogin();
        settings.setLaunchAtLogin(!before);
        QTRY_COMPARE(tarvik.asked, QStringList{before ? u"login off"_s : u"login on"_s});
        // Nobody has set it, so it is taken back.
        QTRY_COMPARE(settings.launchAtLogin(), before);
        QVERIFY(SteeredMachine(tarvik.machine).play(u"set clamshellEnabled false"_s));
        QVERIFY(SteeredMachine(tarvik.machine).play(u"helper missing"_s));
        QTRY_VERIFY(!settings.clamshellEnabled());
        settings.setClamshellEnabled(true);
        QTRY_COMPARE(tarvik.machine.shown, QStringList{u"onboarding"_s});
        QVERIFY(tarvik.machine.settings->clamshellEnabled());
    }

    void theAllowlistIsShownAndEdited()
    {
        ServedTarvik tarvik;
        tarvik.machine.settings->addToAllowlist(u"org.kde.kate"_s, u"Kate"_s);
        SettingsMirror settings(m_client);
        QTRY_VERIFY(settings.isConnected());
        const QVariantMap kate{{u"bundleID"_s, u"org.kde.kate"_s}, {u"name"_s, u"Kate"_s}};
        const QVariantMap gimp{{u"bundleID"_s, u"gimp"_s}, {u"name"_s, u"GIMP"_s}};
        QCOMPARE(settings.allowlist(), QVariantList{kate});
        QSignalSpy changed(&settings, &SettingsMirror::allowlistChanged);
        settings.addToAllowlist(u"gimp"_s, u"GIMP"_s);
        QTRY_COMPARE(settings.allowlist(), (QVariantList{kate, gimp}));
        QCOMPARE(changed.size(), 1);
        settings.addToAllowlist(u"gimp"_s, u"Another name"_s);
        settings.removeFromAllowlist(u"not there"_s);
        settings.removeFromAllowlist(u"org.kde.kate"_s);
        QTRY_COMPARE(settings.allowlist(), QVariantList{gimp});
        QCOMPARE(changed.size(), 2);
        QCOMPARE(tarvik.machine.settings->allowlist(), (QList<AllowlistedApp>{{u"gimp"_s, u"GIMP"_s}}));
    }

    void whatIsOpenIsAskedFor()
    {
        ServedTarvik tarvik;
        tarvik.machine.applications.set({{.id = u"org.kde.kate"_s, .localizedName = u"Kate"_s},
            {.id = {}, .localizedName = u"Nameless"_s},
            {.id = u"org.kde.kate"_s, .localizedName = u"Kate (2)"_s},
            {.id = u"gimp"_s, .localizedName = {}}});
        SettingsMirror settings(m_client);
        std::optional<QStringList> told;
        settings.askForRunningApplications([&](const QStringList& ids) { told = ids; });
        QTRY_VERIFY(told);
        QCOMPARE(*told, (QStringList{u"org.kde.kate"_s, u"gimp"_s}));
    }

    void withoutTarvikNothingIsOpen()
    {
        SettingsMirror settings(m_client);
        std::optional<QStringList> told;
        settings.askForRunningApplications([&](const QStringList& ids) { told = ids; });
        QTRY_VERIFY(told);
        QCOMPARE(*told, QStringList());
    }

    void anApplicationWithoutIdIsRefused()
    {
        ServedTarvik tarvik;
        SettingsMirror settings(m_client);
        expectLog(QtWarningMsg, u"^AddToAllowlist failed: An application has an id\\.$"_s);
        settings.addToAllowlist({}, u"Nothing"_s);
        settle(m_client);
        QVERIFY(tarvik.machine.settings->allowlist().isEmpty());
    }

private:
    QDBusConnection m_client = mirrorConnection();
};

QTEST_GUILESS_MAIN(SettingsMirrorTest)
#include "SettingsMirrorTest.moc"
