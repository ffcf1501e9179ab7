// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/ChildProcess.h"

#include "support/TestSupport.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

using namespace Tarvik;
using namespace std::chrono_literals;

class ChildProcessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void cleanup()
    {
        siginfo_t ended{};
        QVERIFY(waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) != 0 && errno == ECHILD);
    }

    void theExitStatusIsTaken()
    {
        auto process = ChildProcess::start({.words = {"/bin/sh", "-c", "exit 126"}});
        QVERIFY(process && process->isHeld());
        QCOMPARE(process->reap(), std::optional(126));
        QVERIFY(!process->isHeld());
    }

    void aSignalIsNoExitStatus()
    {
        auto process = ChildProcess::start({.words = {"/bin/sleep", "86393"}});
        QVERIFY(process);
        QVERIFY(!process->awaitEnd(1ms));
        process->kill();
        QVERIFY(process->awaitEnd(10s));
        QCOMPARE(process->reap(), std::nullopt);
    }

    void aProgramThatIsMissingDoesNotStart() { QVERIFY(!ChildProcess::start({.words = {"/nonexistent/program"}})); }

    void itHasTheStandardStreamsAndNothingElse()
    {
        const FileDescriptor inheritable(dup(STDIN_FILENO));
        // The last one is the directory that is being listed.
        QCOMPARE(outputOf({.words = {"/bin/sh", "-c", "ls /proc/self/fd; readlink /proc/$$/fd/0 /proc/$$/fd/2"}}),
            QByteArray("0\n1\n2\n3\n/dev/null\n/dev/null\n"));
    }

    void itReadsTheInputThatItIsGiven()
    {
        std::array<int, 2> pipeEnds{};
        QCOMPARE(pipe2(pipeEnds.data(), O_CLOEXEC), 0);
        FileDescriptor readEnd(pipeEnds[0]);
        FileDescriptor writeEnd(pipeEnds[1]);
        auto process
            = ChildProcess::start({.words = {"/bin/sh", "-c", "read word; exit $word"}, .input = readEnd.get()});
        QVERIFY(process);
        readEnd.reset();
        QCOMPARE(write(writeEnd.get(), "7\n", 2), ssize_t{2});
        QCOMPARE(process->reap(), std::optional(7));
    }

    void withoutAnOutputItWritesNowhere()
    {
        auto process
            = ChildProcess::start({.words = {"/bin/sh", "-c", "[ \"$(readlink /proc/$$/fd/1)\" = /dev/null ]"}});
        QVERIFY(process);
        QCOMPARE(process->reap(), std::optional(0));
    }

    void onlyOnRequestErrorsGoWhereTheOutputGoes()
    {
        const std::vector<std::string> words{"/bin/sh", "-c", "echo done; echo failed >&2"};
        QCOMPARE(outputOf({.words = words}), QByteArray("done\n"));
        QCOMPARE(outputOf({.words = words, .hasErrorsInOutput = true}), QByteArray("done\nfailed\n"));
    }

    void theEnvironmentIsOursUnlessAnotherIsGiven()
    {
        qputenv("TARVIK_TEST", "inherited");
        const std::vector<std::string> words{"/bin/sh", "-c", "echo $TARVIK_TEST:$OTHER"};
        QCOMPARE(outputOf({.words = words}), QByteArray("inherited:\n"));
        QCOMPARE(outputOf({.words = words, .environment = {{"OTHER=given"}}}), QByteArray(":given\n"));
        qunsetenv("TARVIK_TEST");
    }

    void onlyOnRequestIsTheSessionItsOwn()
    {
        const std::vector<std::string> words{"/bin/sh", "-c", "cut -d' ' -f6 /proc/$$/stat"};
        const QByteArray ours = QByteArray::number(getsid(0)) + '\n';
        QCOMPARE(outputOf({.words = words}), ours);
        QVERIFY(outputOf({.words = words, .hasOwnSession = true}) != ours);
    }

    void blockedAndIgnoredSignalsAreNotInherited()
    {
        sigset_t all;
        sigset_t before;
        sigfillset(&all);
        sigprocmask(SIG_SETMASK, &all, &before);
        auto* const pipeSignal = signal(SIGPIPE, SIG_IGN);
        const QByteArray output = outputOf({.words = {"/bin/grep", "-E", "^Sig(Blk|Ign)", "/proc/self/status"}});
        signal(SIGPIPE, pipeSignal);
        sigprocmask(SIG_SETMASK, &before, nullptr);
        const QByteArrayList lines = output.split('\n');
        QCOMPARE(lines.value(0), QByteArray("SigBlk:\t0000000000000000"));
        // The two signals above the standard ones belong to the C library.
        bool isNumber = false;
        QCOMPARE(lines.value(1).mid(8).toULongLong(&isNumber, 16) & 0x7fffffffU, 0U);
        QVERIFY(isNumber);
    }

    void lettingGoLeavesItRunning()
    {
        std::array<int, 2> ends{};
        QCOMPARE(pipe2(ends.data(), O_CLOEXEC), 0);
        const FileDescriptor readEnd(ends[0]);
        FileDescriptor writeEnd(ends[1]);
        QVERIFY(ChildProcess::start({.words = {"/bin/sh", "-c", "sleep 0.01; echo alive"}, .output = writeEnd.get()}));
        writeEnd.reset();
        QCOMPARE(readToEnd(readEnd.get()), QByteArray("alive\n"));
        siginfo_t ended{};
        QCOMPARE(waitid(P_ALL, 0, &ended, WEXITED), 0);
        QCOMPARE(ended.si_status, 0);
    }

private:
    static QByteArray readToEnd(int descriptor)
    {
        QByteArray text;
        std::array<char, 4096> chunk{};
        ssize_t count = 0;
        while ((count = read(descriptor, chunk.data(), chunk.size())) > 0)
            text.append(chunk.data(), count);
        return text;
    }

    /// What the command writes until its end.
    static QByteArray outputOf(ChildProcess::Command command)
    {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            return "no pipe";
        const FileDescriptor readEnd(ends[0]);
        FileDescriptor writeEnd(ends[1]);
        command.output = writeEnd.get();
        auto process = ChildProcess::start(std::move(command));
        writeEnd.reset();
        if (!process)
            return "not started";
        const QByteArray text = readToEnd(readEnd.get());
        process->reap();
        return text;
    }
};

QTEST_GUILESS_MAIN(ChildProcessTest)
#include "ChildProcessTest.moc"
