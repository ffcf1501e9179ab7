// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/LogindLidSensor.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLogind.h"
#include "fakes/FakeUPower.h"
#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Closed = std::optional<bool>;

} // namespace

class LogindLidSensorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_logind = std::make_unique<FakeLogind>(m_service);
        m_upower = std::make_unique<FakeUPower>(m_service);
        m_procfs = std::make_unique<FileTree>();
        m_sysfs = std::make_unique<FileTree>();
        m_presenceChanges = 0;
        m_changes = 0;
    }

    void cleanup()
    {
        m_sensor.reset();
        m_logind.reset();
        m_upower.reset();
    }

    void nothingIsKnownBeforeTheFirstAnswer()
    {
        startLogind(true);
        make();
        QCOMPARE(m_sensor->isClosed(), Closed{});
    }

    void theAnswerThatComesLaterIsReported()
    {
        startLogind(true);
        make();
        QTRY_COMPARE(m_changes, 1);
        QCOMPARE(m_sensor->isClosed(), Closed{true});
    }

    void askingNoticesAChangeThatIsNotAnnounced()
    {
        startLogind(false);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
        m_changes = 0;
        m_logind->properties[FakeLogind::lidClosed] = true;
        m_sensor->isClosed();
        QTRY_COMPARE(m_changes, 1);
        QCOMPARE(m_sensor->isClosed(), Closed{true});
    }

    void anAnswerIsAskedForOnlyOnceByWhoeverHearsOfIt()
    {
        startLogind(true);
        make();
        m_listening = m_sensor->changed.subscribe([this] {
            ++m_changes;
            m_sensor->isClosed();
        });
        QTRY_COMPARE(m_changes, 1);
        QCOMPARE(m_logind->questions, QStringList{FakeLogind::lidClosed});
    }

    void anUnchangedLidIsNotReported()
    {
        startLogind(false);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
        m_changes = 0;
        const auto questions = m_logind->questions.size();
        // Asking while an answer is still awaited is no further question.
        QTRY_VERIFY((m_sensor->isClosed(), m_logind->questions.size() >= questions + 3));
        QCOMPARE(m_changes, 0);
    }

    void anAnnouncedChangeIsReported()
    {
        startLogind(false);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
        m_changes = 0;
        m_logind->answerLater(FakeLogind::lidClosed);
        m_logind->properties[FakeLogind::lidClosed] = true;
        m_logind->announce(FakeLogind::lidClosed);
        QTRY_VERIFY(m_changes > 0);
        QCOMPARE(m_sensor->isClosed(), Closed{true});
    }

    void anAnswerThatHasGrownOldIsNone()
    {
        startLogind(true);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
        m_clock.advance(1min);
        m_logind->properties[FakeLogind::lidClosed] = false;
        QCOMPARE(m_sensor->isClosed(), Closed{});
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
    }

    void withoutLogindUPowerIsAsked()
    {
        m_upower->manager = {{u"LidIsPresent"_s, true}, {u"LidIsClosed"_s, true}};
        m_upower->start();
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
        m_upower->set(u"LidIsClosed"_s, false);
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
    }

    void aMachineWithoutALidHasNoState()
    {
        m_upower->manager = {{u"LidIsPresent"_s, false}, {u"LidIsClosed"_s, false}};
        m_upower->start();
        make();
        QTRY_VERIFY(m_upower->calls > 0);
        QCOMPARE(m_sensor->isClosed(), Closed{});
        QCOMPARE(m_changes, 0);
    }

    void withoutAnyServiceTheAcpiDriverTells()
    {
        m_procfs->write(u"acpi/button/lid/LID0/state"_s, "state:      closed\n");
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
        QVERIFY(m_changes >= 1);
        m_procfs->write(u"acpi/button/lid/LID0/state"_s, "state:      open\n");
        QCOMPARE(m_sensor->isClosed(), Closed{false});
    }

    void anAcpiFileThatMakesNoSenseTellsNothing()
    {
        m_procfs->write(u"acpi/button/lid/LID0/state"_s, "state:      unsupported\n");
        m_procfs->breakFile(u"acpi/button/lid/LID1/state"_s);
        m_procfs->makeDirectory(u"acpi/button/lid/LID2"_s);
        m_procfs->write(u"acpi/button/lid/LID3/state"_s, "state:      closed\n");
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
        m_procfs->write(u"acpi/button/lid/LID3/state"_s, "closed\n");
        QCOMPARE(m_sensor->isClosed(), Closed{});
    }

    void aWrongTypeCountsAsNotTold()
    {
        m_logind->properties[FakeLogind::lidClosed] = u"true"_s;
        QVERIFY(m_logind->appear());
        m_upower->manager = {{u"LidIsPresent"_s, true}, {u"LidIsClosed"_s, true}};
        m_upower->start();
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
        QVERIFY(m_upower->calls > 0);
    }

    void logindThatComesLaterIsPreferred()
    {
        m_procfs->write(u"acpi/button/lid/LID0/state"_s, "state:      open\n");
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
        startLogind(true);
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
    }

    void logindThatVanishesIsReplaced()
    {
        startLogind(true);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
        m_procfs->write(u"acpi/button/lid/LID0/state"_s, "state:      open\n");
        m_logind->vanish();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
    }

    void aServiceThatNeverAnswersIsAskedOnceAndBlocksNothing()
    {
        m_logind->answerLater(FakeLogind::lidClosed);
        QVERIFY(m_logind->appear());
        make();
        QTRY_COMPARE(m_logind->questions, QStringList{FakeLogind::lidClosed});
        for (int round = 0; round < 10; ++round)
            QCOMPARE(m_sensor->isClosed(), Closed{});
        QCoreApplication::processEvents();
        QCOMPARE(m_logind->questions, QStringList{FakeLogind::lidClosed});
    }

    void uPowerSaysWhetherThereIsALid_data()
    {
        QTest::addColumn<bool>("isPresent");
        QTest::newRow("a lid") << true;
        QTest::newRow("none") << false;
    }

    void uPowerSaysWhetherThereIsALid()
    {
        QFETCH(bool, isPresent);
        startLogind(false);
        m_upower->manager = {{u"LidIsPresent"_s, isPresent}};
        m_upower->start();
        make();
        QCOMPARE(m_sensor->isPresent(), std::optional<bool>());
        QTRY_COMPARE(m_sensor->isPresent(), std::optional(isPresent));
        QCOMPARE(m_presenceChanges, 1);
    }

    void aLidThatUPowerFindsLaterCounts()
    {
        m_upower->manager = {{u"LidIsPresent"_s, false}};
        m_upower->start();
        make();
        QTRY_COMPARE(m_sensor->isPresent(), std::optional(false));
        // The change is told only to whoever follows the service by then.
        QTRY_VERIFY((m_upower->set(u"LidIsPresent"_s, true), m_sensor->isPresent() == true));
        m_upower->set(u"OnBattery"_s, false);
        QTRY_VERIFY((QCoreApplication::processEvents(), m_sensor->isPresent() == true));
        QCOMPARE(m_presenceChanges, 2);
    }

    void withoutUPowerTheKernelSaysWhetherThereIsALid_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isPresent");
        const auto switches = u"class/input/input3/capabilities/sw"_s;
        QTest::newRow("a switch for a lid") << switches << QByteArray("1\n") << true;
        QTest::newRow("several switches") << switches << QByteArray("21\n") << true;
        QTest::newRow("several words") << switches << QByteArray("1 0 3\n") << true;
        QTest::newRow("a switch for a tablet") << switches << QByteArray("2\n") << false;
        QTest::newRow("another word's lowest bit") << switches << QByteArray("1 0\n") << false;
        QTest::newRow("no switches") << switches << QByteArray("0\n") << false;
        QTest::newRow("nonsense") << switches << QByteArray("lid\n") << false;
        QTest::newRow("an empty file") << switches << QByteArray() << false;
        QTest::newRow("the driver's file") << u"acpi/button/lid/LID/state"_s << QByteArray("state: open\n") << true;
        QTest::newRow("nothing") << u"class/other"_s << QByteArray() << false;
    }

    void withoutUPowerTheKernelSaysWhetherThereIsALid()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, content);
        QFETCH(bool, isPresent);
        (path.startsWith(u"acpi"_s) ? m_procfs : m_sysfs)->write(path, content);
        startLogind(false);
        make();
        QTRY_COMPARE(m_sensor->isPresent(), std::optional(isPresent));
    }

    void aLidThatOnlyTheKernelKnowsOfCounts()
    {
        m_sysfs->write(u"class/input/input0/capabilities/sw"_s, "0\n");
        m_sysfs->write(u"class/input/input7/capabilities/sw"_s, "1\n");
        m_upower->manager = {{u"LidIsPresent"_s, false}};
        m_upower->start();
        make();
        QTRY_COMPARE(m_sensor->isPresent(), std::optional(true));
    }

    void aUPowerThatKnowsNothingOfLidsIsNoAnswer()
    {
        m_sysfs->write(u"class/input/input0/capabilities/sw"_s, "1\n");
        m_upower->start();
        make();
        QTRY_COMPARE(m_sensor->isPresent(), std::optional(true));
    }

    void uPowerThatComesLaterIsAsked()
    {
        make();
        QTRY_COMPARE(m_sensor->isPresent(), std::optional(false));
        m_upower->manager = {{u"LidIsPresent"_s, true}};
        m_upower->start();
        QTRY_COMPARE(m_sensor->isPresent(), std::optional(true));
        QCOMPARE(m_presenceChanges, 2);
    }

private:
    void startLogind(bool closed)
    {
        m_logind->properties[FakeLogind::lidClosed] = closed;
        QVERIFY(m_logind->appear());
    }

    void make()
    {
        m_sensor = std::make_unique<LogindLidSensor>(m_application, m_clock, m_procfs->root(), m_sysfs->root());
        m_listening = m_sensor->changed.subscribe([this] { ++m_changes; });
        m_listeningForPresence = m_sensor->presenceChanged.subscribe([this] { ++m_presenceChanges; });
    }

    // Two connections, because calls within one never reach the bus.
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    QDBusConnection m_application = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"application"_s);
    FakeClock m_clock;
    std::unique_ptr<FakeLogind> m_logind;
    std::unique_ptr<FakeUPower> m_upower;
    std::unique_ptr<FileTree> m_procfs;
    std::unique_ptr<FileTree> m_sysfs;
    std::unique_ptr<LogindLidSensor> m_sensor;
    int m_changes = 0;
    int m_presenceChanges = 0;
    Subscription m_listening;
    Subscription m_listeningForPresence;
};

QTEST_GUILESS_MAIN(LogindLidSensorTest)
#include "LogindLidSensorTest.moc"
