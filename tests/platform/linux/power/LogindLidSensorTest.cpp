// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/LogindLidSensor.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLogindManager.h"
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
        m_logind = std::make_unique<FakeLogindManager>(m_service);
        m_upower = std::make_unique<FakeUPower>(m_service);
        m_procfs = std::make_unique<FileTree>();
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
        m_logind->properties[u"LidClosed"_s] = true;
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
        QCOMPARE(m_logind->calls, 1);
    }

    void anUnchangedLidIsNotReported()
    {
        startLogind(false);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
        m_changes = 0;
        const int calls = m_logind->calls;
        // Asking while an answer is still awaited is no further question.
        QTRY_VERIFY((m_sensor->isClosed(), m_logind->calls >= calls + 3));
        QCOMPARE(m_changes, 0);
    }

    void anAnnouncedChangeIsReported()
    {
        startLogind(false);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
        m_changes = 0;
        m_logind->answers = false;
        m_logind->properties[u"LidClosed"_s] = true;
        m_logind->announce(u"LidClosed"_s);
        QTRY_VERIFY(m_changes > 0);
        QCOMPARE(m_sensor->isClosed(), Closed{true});
    }

    void anAnswerThatHasGrownOldIsNone()
    {
        startLogind(true);
        make();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{true});
        m_clock.advance(1min);
        m_logind->properties[u"LidClosed"_s] = false;
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
        m_logind->properties[u"LidClosed"_s] = u"true"_s;
        m_logind->start();
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
        m_logind->stop();
        QTRY_COMPARE(m_sensor->isClosed(), Closed{false});
    }

    void aServiceThatNeverAnswersIsAskedOnceAndBlocksNothing()
    {
        m_logind->answers = false;
        m_logind->start();
        make();
        QTRY_COMPARE(m_logind->calls, 1);
        for (int round = 0; round < 10; ++round)
            QCOMPARE(m_sensor->isClosed(), Closed{});
        QCoreApplication::processEvents();
        QCOMPARE(m_logind->calls, 1);
    }

private:
    void startLogind(bool closed)
    {
        m_logind->properties[u"LidClosed"_s] = closed;
        m_logind->start();
    }

    void make()
    {
        m_sensor = std::make_unique<LogindLidSensor>(m_application, m_clock, m_procfs->root());
        m_listening = m_sensor->changed.subscribe([this] { ++m_changes; });
    }

    // Two connections, because calls within one never reach the bus.
    QDBusConnection m_service = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
    QDBusConnection m_application = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"application"_s);
    FakeClock m_clock;
    std::unique_ptr<FakeLogindManager> m_logind;
    std::unique_ptr<FakeUPower> m_upower;
    std::unique_ptr<FileTree> m_procfs;
    std::unique_ptr<LogindLidSensor> m_sensor;
    int m_changes = 0;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(LogindLidSensorTest)
#include "LogindLidSensorTest.moc"
