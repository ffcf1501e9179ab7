// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/updates/PackageKitUpdateDriver.h"

#include "fakes/FakeClock.h"
#include "fakes/FakePackageKit.h"
#include "support/TestSupport.h"

#include <QDBusPendingCallWatcher>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Tarvik;
using namespace Qt::StringLiterals;

using Task = UpdateDriver::Task;
using Initiator = UpdateDriver::Initiator;

namespace {

const auto program = u"/usr/lib/tarvik/Contents/Linux/Tarvik"_s;
const auto installed = u"tarvik;1.2.0;amd64;installed:local"_s;
const auto newer = u"tarvik;1.3.0;amd64;stable"_s;

} // namespace

class PackageKitUpdateDriverTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_driver.reset();
        m_packageKit = std::make_unique<FakePackageKit>(m_server);
        m_packageKit->outcomes[u"SearchFiles"_s].packageIds = {installed};
        QVERIFY(m_packageKit->appear());
        m_finished.clear();
    }

    void aDriverThatNobodyAsksAsksNobody()
    {
        use(program);
        settle();
        QVERIFY(!m_driver->isAvailable());
        QVERIFY(m_packageKit->methods.isEmpty());
    }

    void thePackageOfTheProgramIsFound()
    {
        use(program);
        int announced = 0;
        const Subscription listening = m_driver->channelChanged.subscribe([&] { ++announced; });
        m_driver->prepare();
        m_driver->prepare();
        QCOMPARE(m_driver->channel(), UpdateDriver::Channel::unknown);
        QTRY_VERIFY(m_driver->isAvailable());
        QCOMPARE(announced, 1);
        QCOMPARE(m_packageKit->methods, QStringList{u"SearchFiles"_s});
        QCOMPARE(m_packageKit->arguments[0], (QVariantList{quint64{4}, QStringList{program}}));
        m_driver->prepare();
        settle();
        QCOMPARE(m_packageKit->methods.size(), 1);
    }

    void aProgramBuiltFromSourceStartsNothing_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("in a home") << u"/home/user/tarvik/build/Tarvik"_s;
        QTest::newRow("installed by hand") << u"/usr/local/lib/tarvik/Contents/Linux/Tarvik"_s;
        QTest::newRow("nowhere") << QString();
    }

    void aProgramBuiltFromSourceStartsNothing()
    {
        QFETCH(QString, path);
        use(path);
        m_driver->prepare();
        settle();
        QVERIFY(!m_driver->isAvailable());
        QVERIFY(m_packageKit->methods.isEmpty());
    }

    void aProgramThatNoPackageBroughtSaysAtOnceHowItIsUpdated()
    {
        const QTemporaryDir tree;
        QVERIFY(QDir(tree.path()).mkpath(u"build/lib/tarvik"_s));
        const QString built = tree.filePath(u"build/lib/tarvik/Tarvik"_s);
        use(built);
        QCOMPARE(m_driver->channel(), UpdateDriver::Channel::manual);
        QVERIFY(QFile(tree.filePath(u"build/CMakeCache.txt"_s)).open(QIODevice::WriteOnly));
        use(built);
        QCOMPARE(m_driver->channel(), UpdateDriver::Channel::source);
    }

    void aProgramOfNoPackageHasNoUpdates()
    {
        m_packageKit->outcomes[u"SearchFiles"_s].packageIds.clear();
        use(program);
        m_driver->prepare();
        QTRY_COMPARE(m_packageKit->methods.size(), 1);
        settle();
        QCOMPARE(m_driver->channel(), UpdateDriver::Channel::manual);
        m_driver->prepare();
        settle();
        QCOMPARE(m_packageKit->methods.size(), 1);
    }

    void withoutPackageKitThereAreNoUpdatesUntilItIsInstalled()
    {
        m_packageKit->vanish();
        use(program);
        expectLog(QtInfoMsg, u"^There are no updates, for lack of PackageKit: .*org.freedesktop.PackageKit.*$"_s);
        m_driver->prepare();
        settle();
        QCOMPARE(m_driver->channel(), UpdateDriver::Channel::system);
        QVERIFY(m_packageKit->appear());
        m_driver->prepare();
        QTRY_VERIFY(m_driver->isAvailable());
    }

    void withoutASystemBusThereAreNoUpdates()
    {
        m_driver = std::make_unique<PackageKitUpdateDriver>(QDBusConnection(u"none"_s), program, m_clock);
        expectLog(QtInfoMsg, u"^There are no updates, for lack of PackageKit: .+$"_s);
        m_driver->prepare();
        settle();
        QVERIFY(!m_driver->isAvailable());
    }

    void aCheckRefreshesTheListsAndLooks()
    {
        m_packageKit->outcomes[u"GetUpdates"_s].packageIds = {u"bash;5.2;amd64;stable"_s};
        makeAvailable();
        m_driver->start(Task::checkAndInstall, Initiator::user);
        QTRY_COMPARE(m_finished, QList<bool>{true});
        QCOMPARE(m_packageKit->methods.mid(1), (QStringList{u"RefreshCache"_s, u"GetUpdates"_s}));
        QCOMPARE(m_packageKit->arguments[1], QVariantList{false});
        QCOMPARE(m_packageKit->arguments[2], QVariantList{quint64{2}});
    }

    void aNewVersionIsOnlyToldOfUnlessItIsToBeInstalled()
    {
        m_packageKit->outcomes[u"GetUpdates"_s].packageIds = {newer};
        makeAvailable();
        expectLog(QtInfoMsg, u"^There is a new version: tarvik;1\\.3\\.0;amd64;stable$"_s);
        m_driver->start(Task::check, Initiator::user);
        QTRY_COMPARE(m_finished, QList<bool>{true});
        QVERIFY(!m_packageKit->methods.contains(u"UpdatePackages"_s));
    }

    void onlyOurOwnPackageIsInstalled()
    {
        m_packageKit->outcomes[u"GetUpdates"_s].packageIds
            = {u"tarvik-extras;9;amd64;stable"_s, newer, u"bash;5.2;amd64;stable"_s};
        makeAvailable();
        expectLog(QtInfoMsg, u"^There is a new version: .*$"_s);
        expectLog(QtInfoMsg, u"^The new version is installed and runs after the next start$"_s);
        m_driver->start(Task::checkAndInstall, Initiator::user);
        QTRY_COMPARE(m_finished, QList<bool>{true});
        QCOMPARE(m_packageKit->methods.last(), u"UpdatePackages"_s);
        QCOMPARE(m_packageKit->arguments.last(), (QVariantList{quint64{2}, QStringList{newer}}));
        QCOMPARE(m_packageKit->methods.size(), 4);
    }

    void onlyTheUserIsAskedForAPassword()
    {
        makeAvailable();
        QVERIFY(m_packageKit->hints.contains(u"interactive=false"_s));
        m_driver->start(Task::check, Initiator::user);
        QTRY_COMPARE(m_finished.size(), 1);
        QCOMPARE(m_packageKit->hints, QStringList{u"interactive=true"_s});
        m_driver->start(Task::check, Initiator::timer);
        QTRY_COMPARE(m_finished.size(), 2);
        QCOMPARE(m_packageKit->hints, (QStringList{u"interactive=false"_s, u"background=true"_s}));
    }

    void withoutNetworkThereIsNoCheck()
    {
        m_packageKit->outcomes[u"RefreshCache"_s].error = u"There is no network"_s;
        makeAvailable();
        expectLog(QtWarningMsg, u"^New versions could not be looked for: There is no network$"_s);
        m_driver->start(Task::check, Initiator::timer);
        QTRY_COMPARE(m_finished, QList<bool>{false});
        QVERIFY(!m_packageKit->methods.contains(u"GetUpdates"_s));
    }

    void aListThatFailsIsNoCheck()
    {
        m_packageKit->outcomes[u"GetUpdates"_s] = {.packageIds = {newer}, .error = u"broken"_s};
        makeAvailable();
        expectLog(QtWarningMsg, u"^New versions could not be listed: broken$"_s);
        m_driver->start(Task::checkAndInstall, Initiator::timer);
        QTRY_COMPARE(m_finished, QList<bool>{false});
    }

    void aRefusedInstallationIsStillACheck()
    {
        m_packageKit->outcomes[u"GetUpdates"_s].packageIds = {newer};
        m_packageKit->outcomes[u"UpdatePackages"_s].isRefused = true;
        makeAvailable();
        expectLog(QtInfoMsg, u"^There is a new version: .*$"_s);
        expectLog(QtWarningMsg, u"^The new version was not installed: Not authorised$"_s);
        m_driver->start(Task::checkAndInstall, Initiator::timer);
        QTRY_COMPARE(m_finished, QList<bool>{true});
    }

    void aPackageKitThatDiesEndsTheCheck()
    {
        m_packageKit->outcomes[u"RefreshCache"_s].ends = false;
        const QString name = u"dying"_s;
        {
            const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
            m_packageKit->vanish();
            FakePackageKit dying(bus);
            dying.outcomes = m_packageKit->outcomes;
            QVERIFY(dying.appear());
            makeAvailable();
            m_driver->start(Task::check, Initiator::timer);
            QTRY_COMPARE(dying.methods.last(), u"RefreshCache"_s);
        }
        expectLog(QtWarningMsg, u"^New versions could not be looked for: PackageKit has gone\\.$"_s);
        QDBusConnection::disconnectFromBus(name);
        QTRY_COMPARE(m_finished, QList<bool>{false});
    }

    void aTransactionWithoutASignOfLifeIsCancelledAndTheNextCheckWorks()
    {
        m_packageKit->outcomes[u"RefreshCache"_s].ends = false;
        beginCheck();
        m_clock.advance(PackageKitTransaction::patience - Seconds(1));
        settle();
        QCOMPARE(m_packageKit->cancellations, 0);
        QVERIFY(m_finished.isEmpty());
        expectLog(QtWarningMsg,
            u"^New versions could not be looked for: PackageKit has shown no sign of life for five minutes\\.$"_s);
        m_clock.advance(Seconds(1));
        QCOMPARE(m_finished, QList<bool>{false});
        QCOMPARE(m_clock.pending(), std::size_t{0});
        QTRY_COMPARE(m_packageKit->cancellations, 1);
        // What the cancelled transaction still says concerns nobody.
        m_packageKit->emitFrom(m_packageKit->currentPath(), u"Finished"_s, {uint{3}, uint{0}});
        settle();
        QVERIFY(m_driver->isAvailable());
        m_packageKit->outcomes.remove(u"RefreshCache"_s);
        m_driver->start(Task::check, Initiator::user);
        QTRY_COMPARE(m_finished, (QList<bool>{false, true}));
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void aTransactionThatShowsLifeMayTakeItsTime_data()
    {
        QTest::addColumn<QString>("interface");
        QTest::addColumn<QString>("signal");
        QTest::addColumn<QVariantList>("arguments");
        const auto transaction = u"org.freedesktop.PackageKit.Transaction"_s;
        QTest::newRow("progress") << transaction << u"ItemProgress"_s
                                  << QVariantList{u"bash;5.2;amd64;stable"_s, uint{8}, uint{50}};
        QTest::newRow("percentage") << u"org.freedesktop.DBus.Properties"_s << u"PropertiesChanged"_s
                                    << QVariantList{
                                           transaction, QVariantMap{{u"Percentage"_s, uint{50}}}, QStringList()};
        QTest::newRow("a signal of a later version") << transaction << u"Changed"_s << QVariantList();
    }

    void aTransactionThatShowsLifeMayTakeItsTime()
    {
        QFETCH(QString, interface);
        QFETCH(QString, signal);
        QFETCH(QVariantList, arguments);
        m_packageKit->outcomes[u"RefreshCache"_s].ends = false;
        beginCheck();
        for (int time = 0; time < 12; ++time) {
            m_packageKit->emitFrom(m_packageKit->currentPath(), signal, arguments, interface);
            settle();
            m_clock.advance(PackageKitTransaction::patience);
        }
        QVERIFY(m_finished.isEmpty());
        expectLog(QtWarningMsg, u"^New versions could not be looked for: .*no sign of life.*$"_s);
        m_clock.advance(PackageKitTransaction::patience);
        QCOMPARE(m_finished, QList<bool>{false});
    }

    void aSearchWithoutASignOfLifeIsRepeatedWhenAskedForAgain()
    {
        m_packageKit->outcomes[u"SearchFiles"_s] = {.packageIds = {}, .ends = false};
        use(program);
        m_driver->prepare();
        QTRY_COMPARE(m_packageKit->methods, QStringList{u"SearchFiles"_s});
        settle();
        expectLog(QtInfoMsg, u"^There are no updates, for lack of PackageKit: .*no sign of life.*$"_s);
        m_clock.advance(PackageKitTransaction::patience);
        QTRY_COMPARE(m_packageKit->cancellations, 1);
        m_packageKit->outcomes[u"SearchFiles"_s] = {.packageIds = {installed}};
        m_driver->prepare();
        QTRY_VERIFY(m_driver->isAvailable());
    }

    void signalsOfOtherTypesAreIgnored()
    {
        m_packageKit->outcomes[u"RefreshCache"_s].ends = false;
        makeAvailable();
        m_driver->start(Task::check, Initiator::timer);
        QTRY_COMPARE(m_packageKit->methods.last(), u"RefreshCache"_s);
        const QString path = m_packageKit->currentPath();
        for (const auto& signal : {u"Package"_s, u"ErrorCode"_s, u"Finished"_s}) {
            m_packageKit->emitFrom(path, signal, {});
            m_packageKit->emitFrom(path, signal, {u"text"_s});
        }
        // Another one's transaction.
        m_packageKit->emitFrom(u"/org/freedesktop/PackageKit/99"_s, u"Finished"_s, {uint{1}, uint{0}});
        settle();
        QVERIFY(m_finished.isEmpty());
        m_packageKit->emitFrom(path, u"Finished"_s, {uint{1}, uint{0}});
        QTRY_COMPARE(m_finished, QList<bool>{true});
    }

private:
    void use(const QString& path)
    {
        m_driver = std::make_unique<PackageKitUpdateDriver>(m_client, path, m_clock);
        m_listening = m_driver->finished.subscribe([this](bool hasChecked) { m_finished.append(hasChecked); });
    }

    void makeAvailable()
    {
        use(program);
        m_driver->prepare();
        QTRY_VERIFY(m_driver->isAvailable());
    }

    /// Begins a check whose first transaction does not end by itself.
    void beginCheck()
    {
        makeAvailable();
        m_driver->start(Task::check, Initiator::user);
        QTRY_COMPARE(m_packageKit->methods.last(), u"RefreshCache"_s);
        settle();
    }

    /// Until whatever has been sent has been answered.
    void settle()
    {
        for (int round = 0; round < 6; ++round) {
            QDBusPendingCallWatcher ping(m_client.asyncCall(QDBusMessage::createMethodCall(
                m_server.baseService(), u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s)));
            QSignalSpy finished(&ping, &QDBusPendingCallWatcher::finished);
            QVERIFY(finished.wait(patience));
        }
    }

    QDBusConnection m_server = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"packagekit"_s);
    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"tarvik"_s);
    FakeClock m_clock;
    std::unique_ptr<FakePackageKit> m_packageKit;
    std::unique_ptr<PackageKitUpdateDriver> m_driver;
    QList<bool> m_finished;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(PackageKitUpdateDriverTest)
#include "PackageKitUpdateDriverTest.moc"
