// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/PsProcessTable.h"

#include "base/FileDescriptor.h"
#include "fakes/FakeClock.h"
#include "platform/linux/TimerfdClock.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <vector>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class PsProcessTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        QVERIFY(m_directory.isValid());
    }

    void cleanup() { QVERIFY(hasNoChildren()); }

    void theListingShowsARunningCommandLine()
    {
        QProcess sleeper;
        sleeper.start(u"/bin/sleep"_s, {u"86399.25"_s});
        QTRY_VERIFY(hasCommandLine(sleeper));
        PsProcessTable table(m_clock);
        const QByteArray now = readNow(table);
        const QByteArray later = readInLoop(table);
        sleeper.kill();
        QVERIFY(sleeper.waitForFinished());
        QVERIFY(now.split('\n').contains("/bin/sleep 86399.25"));
        QVERIFY(later.split('\n').contains("/bin/sleep 86399.25"));
    }

    void thereIsNoHeaderAndNoSelectionByTerminal()
    {
        QProcess sleeper;
        // A process of a new session has no terminal.
        sleeper.setChildProcessModifier([] { setsid(); });
        sleeper.start(u"/bin/sleep"_s, {u"86396"_s});
        QTRY_VERIFY(hasCommandLine(sleeper));
        PsProcessTable table(m_clock);
        const QByteArrayList lines = readNow(table).split('\n');
        QVERIFY(!lines.contains("COMMAND"));
        sleeper.kill();
        QVERIFY(sleeper.waitForFinished());
        QVERIFY(lines.contains("/bin/sleep 86396"));
    }

    void argumentsAndEnvironmentAreFixed()
    {
        qputenv("PS_FORMAT", "pid");
        qputenv("COLUMNS", "10");
        const auto script = write("echo \"$#:$*\"; env | grep -v -e ^PWD= -e ^_= -e ^SHLVL= -e ^OLDPWD= | sort\n"
                                  "echo noise >&2; cat");
        PsProcessTable table(m_clock, script);
        QCOMPARE(readNow(table), QByteArray("3:-axww -o args=\nLC_ALL=C.UTF-8\nPATH=/usr/bin:/bin\n"));
    }

    void theUsersPsSettingsDoNotMatter_data()
    {
        QTest::addColumn<QByteArray>("variable");
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("format") << QByteArray("PS_FORMAT") << QByteArray("pid,tty");
        QTest::newRow("personality") << QByteArray("PS_PERSONALITY") << QByteArray("bsd");
        QTest::newRow("unknown personality") << QByteArray("PS_PERSONALITY") << QByteArray("nonsense");
        QTest::newRow("posix") << QByteArray("POSIXLY_CORRECT") << QByteArray("1");
        QTest::newRow("width") << QByteArray("COLUMNS") << QByteArray("20");
        QTest::newRow("locale") << QByteArray("LC_ALL") << QByteArray("C");
    }

    void theUsersPsSettingsDoNotMatter()
    {
        QFETCH(QByteArray, variable);
        QFETCH(QByteArray, value);
        QProcess sleeper;
        sleeper.start(u"/bin/sleep"_s, {u"86398"_s, u"0.000000000000000000000000000000001"_s});
        QTRY_VERIFY(hasCommandLine(sleeper));
        const QByteArray before = qgetenv(variable.constData());
        qputenv(variable.constData(), value);
        const QByteArray output = readNow(PsProcessTable(m_clock));
        if (before.isNull())
            qunsetenv(variable.constData());
        else
            qputenv(variable.constData(), before);
        sleeper.kill();
        QVERIFY(sleeper.waitForFinished());
        QVERIFY(output.split('\n').contains("/bin/sleep 86398 0.000000000000000000000000000000001"));
    }

    void aCommandLineThatIsNotUtf8DoesNotSpoilTheListing()
    {
        const pid_t child = fork();
        if (child == 0) {
            execl("/bin/sleep", "\xff\xfe-tarvik", "86397", static_cast<char*>(nullptr));
            _exit(127);
        }
        QByteArray output;
        PsProcessTable table(m_clock);
        QTRY_VERIFY((output = readNow(table)).contains("-tarvik 86397"));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString text = decoder.decode(output);
        QVERIFY(!text.isEmpty() && !decoder.hasError());
    }

    void bytesThatAreNotUtf8ArriveAsTheyAre()
    {
        PsProcessTable table(m_clock, write("printf 'a\\377\\376b\\001\\n'"));
        QCOMPARE(readNow(table),
            QByteArray("a\xff\xfe"
                       "b\x01\n"));
        QCOMPARE(readInLoop(table),
            QByteArray("a\xff\xfe"
                       "b\x01\n"));
    }

    void aCommandLineOfOneMegabyteArrives()
    {
        const QByteArray argument(100'000, 'x');
        std::array<int, 2> ends{};
        QCOMPARE(pipe2(ends.data(), O_CLOEXEC), 0);
        const FileDescriptor input(ends[0]);
        const FileDescriptor feeder(ends[1]);
        const pid_t child = fork();
        if (child == 0) {
            dup2(input.get(), STDIN_FILENO);
            std::vector<const char*> arguments{"sleep-with-arguments", "-c", "read line"};
            arguments.insert(arguments.end(), 10, argument.constData());
            arguments.push_back(nullptr);
            // It reads until it is killed: the other end of the pipe stays open.
            execv("/bin/sh", const_cast<char**>(arguments.data()));
            _exit(127);
        }
        QByteArray output;
        PsProcessTable table(m_clock);
        QTRY_VERIFY((output = readNow(table)).contains("sleep-with-arguments"));
        const QByteArray inLoop = readInLoop(table);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        for (const QByteArray& listing : {output, inLoop}) {
            const auto lines = listing.split('\n');
            const auto line = std::ranges::find_if(lines, [](auto& l) { return l.startsWith("sleep-with-arguments"); });
            QVERIFY(line != lines.end());
            // Some releases of ps stop at 128 KiB.
            QVERIFY(line->size() >= 128 * 1024 - 1);
        }
    }

    void anOutputLargerThanThePipeArrivesWhole()
    {
        const auto script = write("head -c 5000000 /dev/zero | tr '\\0' x");
        PsProcessTable table(m_clock, script);
        QCOMPARE(readInLoop(table), QByteArray(5'000'000, 'x'));
        QCOMPARE(readNow(table), QByteArray(5'000'000, 'x'));
    }

    void anOutputBeyondTheLimitIsNoListing()
    {
        PsProcessTable table(m_clock, write("exec head -c 300000000 /dev/zero"));
        QCOMPARE(readNow(table), QByteArray());
        QTRY_VERIFY(waitForTheKilled());
    }

    void noTimerIsLeftAfterAUsualListing()
    {
        FakeClock clock;
        PsProcessTable table(clock, write("echo one; echo two"));
        QByteArray output;
        table.read([&](const QByteArray& text) { output = text; });
        QCOMPARE(clock.pending(), 1U);
        QTRY_COMPARE(output, QByteArray("one\ntwo\n"));
        QCOMPARE(clock.pending(), 0U);
    }

    void aHangingChildIsLookedAtLessAndLessOften()
    {
        FakeClock clock;
        auto table = std::make_unique<PsProcessTable>(clock, write("exec sleep 86395"));
        table->read([](const QByteArray&) { QFAIL("the listing has not ended"); });
        clock.advance(27s);
        QVERIFY(clock.untilNext() > 1s);
        QVERIFY(clock.untilNext() <= 5s);
        table.reset();
        QTRY_VERIFY(waitForTheKilled());
    }

    void aHangingChildIsKilledAfterHalfAMinuteAndCountsAsAFailedRun()
    {
        FakeClock clock;
        PsProcessTable table(clock, write("echo line\nexec sleep 86394"));
        QByteArray output = "unset";
        table.read([&](const QByteArray& text) { output = text; });
        clock.advance(29.9s);
        QCOMPARE(output, QByteArray("unset"));
        clock.advance(0.1s);
        QCOMPARE(output, QByteArray());
        QCOMPARE(clock.pending(), 0U);
        QTRY_VERIFY(waitForTheKilled());
        table.read([&](const QByteArray&) { output = "next"; });
        clock.advance(30s);
        QCOMPARE(output, QByteArray("next"));
        QTRY_VERIFY(waitForTheKilled());
    }

    void waitingEndsBeforeAListingThatHangsAndTheListingGoesOn()
    {
        const QString go = m_directory.filePath(u"go"_s);
        PsProcessTable table(m_clock, write("while [ ! -e " + go.toLocal8Bit() + " ]; do sleep 0.01; done; echo line"));
        QByteArray output = "unset";
        table.read([&](const QByteArray& text) { output = text; });
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!table.wait(0.05s));
        QVERIFY(timer.elapsed() >= 50);
        QCOMPARE(output, QByteArray("unset"));
        QVERIFY(QFile(go).open(QIODevice::WriteOnly));
        QTRY_COMPARE(output, QByteArray("line\n"));
    }

    void anExecutableThatIsMissingGivesNothingLater()
    {
        PsProcessTable table(m_clock, "/nonexistent/ps");
        QCOMPARE(readNow(table), QByteArray());
        int calls = 0;
        table.read([&](const QByteArray& output) {
            ++calls;
            QVERIFY(output.isEmpty());
        });
        QCOMPARE(calls, 0);
        QTRY_COMPARE(calls, 1);
        QCoreApplication::processEvents();
        QCOMPARE(calls, 1);
    }

    void aDestroyedTableDoesNotReportAFailedStart()
    {
        auto table = std::make_unique<PsProcessTable>(m_clock, "/nonexistent/ps");
        table->read([](const QByteArray&) { QFAIL("called after destruction"); });
        table.reset();
        QCoreApplication::processEvents();
    }

    void outputOfAFailedRunCountsAndOfAKilledOneDoesNot()
    {
        QCOMPARE(readNow(PsProcessTable(m_clock, write("echo line; exit 1"))), QByteArray("line\n"));
        PsProcessTable killed(m_clock, write("echo line; kill -9 $$"));
        QCOMPARE(readNow(killed), QByteArray());
        QCOMPARE(readInLoop(killed, "unset"), QByteArray());
    }

    void withoutDescriptorsTheListingIsEmpty()
    {
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
        PsProcessTable table(m_clock);
        const QStringList open = openDescriptors();
        const int firstFree = dup(STDIN_FILENO);
        close(firstFree);
        // The pipe fails, one end of it, then what comes after it.
        for (const int spare : {0, 1, 2}) {
            const rlimit tight{.rlim_cur = static_cast<rlim_t>(firstFree + spare), .rlim_max = before.rlim_max};
            QCOMPARE(setrlimit(RLIMIT_NOFILE, &tight), 0);
            const QByteArray output = readNow(table);
            QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
            QCOMPARE(output, QByteArray());
            QCOMPARE(openDescriptors(), open);
            QVERIFY(hasNoChildren());
        }
        QVERIFY(!readNow(table).isEmpty());
    }

    void destructionKillsAHangingChildAtOnce()
    {
        const QString asked = m_directory.filePath(u"asked"_s);
        const QString ready = m_directory.filePath(u"ready"_s);
        auto table = std::make_unique<PsProcessTable>(m_clock,
            write("trap 'echo >" + asked.toLocal8Bit() + "' TERM\necho >" + ready.toLocal8Bit()
                + "\nwhile :; do :; done"));
        table->read([](const QByteArray&) { QFAIL("called after destruction"); });
        QTRY_VERIFY(QFile::exists(ready));
        QElapsedTimer timer;
        timer.start();
        table.reset();
        QVERIFY(timer.elapsed() < 100);
        QTRY_VERIFY(waitForTheKilled());
        QVERIFY(!QFile::exists(asked));
        QCoreApplication::processEvents();
    }

    void theReceiverMayListAgainOrDestroyTheTable()
    {
        auto table = std::make_unique<PsProcessTable>(m_clock, write("echo line"));
        int calls = 0;
        table->read([&](const QByteArray&) {
            ++calls;
            table->read([&](const QByteArray& output) {
                QCOMPARE(output, QByteArray("line\n"));
                ++calls;
                table.reset();
            });
        });
        QTRY_COMPARE(calls, 2);
        QVERIFY(!table);
    }

    void aHundredListingsLeaveNothingBehind()
    {
        PsProcessTable table(m_clock, write("echo line"));
        QCOMPARE(readInLoop(table), QByteArray("line\n"));
        const QStringList before = openDescriptors();
        for (int i = 0; i < 100; ++i)
            QCOMPARE(i % 2 == 0 ? readInLoop(table) : readNow(table), QByteArray("line\n"));
        QCOMPARE(openDescriptors(), before);
        QVERIFY(hasNoChildren());
    }

    void aZombieIsListedByItsNameAlone()
    {
        const pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_NAME, "tarvik-zombie");
            _exit(0);
        }
        siginfo_t ended{};
        QCOMPARE(waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
        const QByteArray output = readNow(PsProcessTable(m_clock));
        waitpid(child, nullptr, 0);
        QVERIFY(output.split('\n').contains("[tarvik-zombie] <defunct>"));
    }

private:
    std::string write(const QByteArray& body)
    {
        QFile file(m_directory.filePath(u"ps%1"_s.arg(m_scripts++)));
        if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + body + '\n') < 0)
            qFatal("cannot write the script");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName().toStdString();
    }

    /// Waits for the listing without an event loop.
    static QByteArray readNow(PsProcessTable& table)
    {
        QByteArray result = "no answer";
        table.read([&](const QByteArray& output) { result = output; });
        if (!table.wait(30s))
            qWarning("the listing has not ended");
        return result;
    }

    static QByteArray readNow(PsProcessTable&& table) { return readNow(table); }

    static QByteArray readInLoop(PsProcessTable& table, const QByteArray& initial = {})
    {
        bool done = false;
        QByteArray result = initial;
        table.read([&](const QByteArray& output) {
            done = true;
            result = output;
        });
        if (!QTest::qWaitFor([&] { return done; }, 30'000))
            return "no answer";
        return result;
    }

    static QStringList openDescriptors() { return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System); }

    static bool hasNoChildren()
    {
        return waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) != 0 && errno == ECHILD;
    }

    /// Whether those that were killed have gone. Under load that may be after the table has stopped waiting for them.
    static bool waitForTheKilled()
    {
        siginfo_t ended{};
        while (waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) == 0 && ended.si_pid != 0) {
            if (ended.si_code != CLD_KILLED || ended.si_status != SIGKILL)
                return false;
            waitid(P_PID, static_cast<id_t>(ended.si_pid), &ended, WEXITED);
            ended = {};
        }
        return hasNoChildren();
    }

    /// A process has none from the moment when it is said to have started until the kernel has loaded its program.
    static bool hasCommandLine(const QProcess& process)
    {
        QFile file(u"/proc/%1/cmdline"_s.arg(process.processId()));
        return file.open(QIODevice::ReadOnly) && file.readAll().startsWith("/bin/sleep");
    }

    TimerfdClock m_clock;
    QTemporaryDir m_directory;
    int m_scripts = 0;
};

QTEST_GUILESS_MAIN(PsProcessTableTest)
#include "PsProcessTableTest.moc"
