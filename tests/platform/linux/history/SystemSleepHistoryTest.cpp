// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/history/SystemSleepHistory.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLogind.h"
#include "support/StandInPrograms.h"
#include "support/TestSupport.h"

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class SystemSleepHistoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_directory.emplace();
        m_programs.write(u"journalctl"_s, "echo '" + entry("6bbd95ee977941e497c48be27c254128", "10") + "'");
        m_logind.emplace(m_services);
        QVERIFY(m_logind->appear());
        m_clock.emplace();
        m_history.emplace(m_client,
            *m_clock,
            SystemSleepHistory::Journal{.program = (m_programs.path() + u"/journalctl"_s).toStdString(),
                .directories = {u"/nonexistent"_s, m_directory->path()}});
    }

    void cleanup()
    {
        m_history.reset();
        m_logind.reset();
    }

    void whoMayReadTheJournalGetsWhatItTells()
    {
        makeJournal();
        QCOMPARE(read(), one({TimePoint(Seconds(10)), {}}));
    }

    void anEmptyJournalTellsThatTheComputerHasNotSlept()
    {
        makeJournal();
        m_programs.write(u"journalctl"_s, "true");
        QCOMPARE(read(), Sleeps(QList<PastSleep>()));
    }

    void withoutTheJournalNothingIsKnown() { QCOMPARE(readAtOnce(), Sleeps()); }

    void aJournalThatCannotBeReadTellsNothing()
    {
        makeJournal();
        m_programs.write(u"journalctl"_s, "exit 1");
        QCOMPARE(read(), Sleeps());
        m_programs.remove(u"journalctl"_s);
        QCOMPARE(readAtOnce(), Sleeps());
    }

    void withoutTheJournalWhatLogindAnnouncesIsKnown()
    {
        awaitAnnouncements();
        const TimePoint from = m_clock->now();
        announce(true);
        QTRY_COMPARE(last(), (PastSleep{from, {}}));
        m_clock->advance(Seconds(60));
        announce(false);
        QTRY_COMPARE(last(), (PastSleep{from, from + Seconds(60)}));
    }

    void onlyTheLastTwentyAreKept()
    {
        awaitAnnouncements();
        for (int i = 0; i < 25; ++i) {
            announce(true);
            m_clock->advance(Seconds(60));
            QTRY_COMPARE(last().until, std::nullopt);
            announce(false);
            QTRY_COMPARE(last().until, m_clock->now());
        }
        QCOMPARE(readAtOnce()->size(), 20);
        QCOMPARE(last().until, m_clock->now());
    }

    void aProgramThatHangsIsNotWaitedFor()
    {
        makeJournal();
        m_programs.write(u"journalctl"_s, "exec sleep 1000");
        Sleeps answer;
        bool isTold = false;
        m_history->read([&](const Sleeps& sleeps) {
            answer = sleeps;
            isTold = true;
        });
        m_clock->advance(Seconds(2.4));
        QVERIFY(!isTold);
        m_clock->advance(Seconds(0.1));
        QVERIFY(isTold);
        QCOMPARE(answer, Sleeps());
    }

    void whoAsksMeanwhileGetsTheSameAnswer()
    {
        makeJournal();
        int answers = 0;
        m_history->read([&](const Sleeps&) { ++answers; });
        m_history->read([&](const Sleeps&) { ++answers; });
        QTRY_COMPARE(answers, 2);
    }

    void nobodyIsToldAfterTheEnd()
    {
        makeJournal();
        bool isTold = false;
        m_history->read([&](const Sleeps&) { isTold = true; });
        m_history.reset();
        QCOMPARE(m_clock->pending(), 0U);
        QVERIFY(!isTold);
    }

private:
    using Sleeps = std::optional<QList<PastSleep>>;

    static Sleeps one(const PastSleep& sleep) { return QList{sleep}; }

    static QByteArray entry(const QByteArray& message, const QByteArray& second)
    {
        return "{\"MESSAGE_ID\":\"" + message + "\",\"__REALTIME_TIMESTAMP\":\"" + second + "000000\"}";
    }

    /// One that this user may read.
    void makeJournal()
    {
        QFile id(u"/etc/machine-id"_s);
        QVERIFY(id.open(QIODevice::ReadOnly));
        const QString machine = QString::fromLatin1(id.readAll().trimmed());
        QVERIFY(QDir(m_directory->path()).mkpath(machine));
        QFile file(m_directory->filePath(machine + u"/system.journal"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    Sleeps read()
    {
        std::optional<Sleeps> answer;
        m_history->read([&](const Sleeps& sleeps) { answer = sleeps; });
        if (answer || !QTest::qWaitFor([&] { return answer.has_value(); }, patience))
            qWarning("no answer, or at once");
        return answer.value_or(Sleeps());
    }

    /// By the clock.
    Sleeps readAtOnce()
    {
        std::optional<Sleeps> answer;
        m_history->read([&](const Sleeps& sleeps) { answer = sleeps; });
        m_clock->advance(Seconds::zero());
        if (!answer)
            qWarning("no answer");
        return answer.value_or(Sleeps());
    }

    void announce(bool isBeginning)
    {
        m_logind->emitSignal(u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, {isBeginning});
    }

    PastSleep last()
    {
        const Sleeps sleeps = readAtOnce();
        return sleeps && !sleeps->isEmpty() ? sleeps->constLast() : PastSleep{};
    }

    /// Until they are heard; there are some before now.
    void awaitAnnouncements()
    {
        QTRY_VERIFY([this] {
            announce(true);
            return readAtOnce().has_value();
        }());
        announce(false);
        QTRY_VERIFY(last().until.has_value());
        m_clock->advance(Seconds(60));
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    StandInPrograms m_programs;
    std::optional<QTemporaryDir> m_directory;
    std::optional<FakeLogind> m_logind;
    std::optional<FakeClock> m_clock;
    std::optional<SystemSleepHistory> m_history;
};

QTEST_GUILESS_MAIN(SystemSleepHistoryTest)
#include "SystemSleepHistoryTest.moc"
