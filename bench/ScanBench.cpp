// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT

/// ScanBench [SLEEPERS...]: what one scan of the process table costs, as a multiple of a bare /bin/ps in the same run,
/// with so many more processes on the machine.

#include "core/AppSettings.h"
#include "fakes/FakeRunningApplications.h"
#include "fakes/FakeSettingsStore.h"
#include "monitors/ProcessMonitor.h"
#include "platform/linux/PsProcessTable.h"
#include "platform/linux/TimerfdClock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <vector>

using namespace Tarvik;

namespace {

/// CPU time of this process and of the children it has waited for, in milliseconds.
double cpuMilliseconds()
{
    double total = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage = {};
        getrusage(who, &usage);
        for (const timeval& time : {usage.ru_utime, usage.ru_stime})
            total += static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    }
    return total;
}

void runBarePs()
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    char program[] = "/bin/ps";
    char all[] = "-axww";
    char output[] = "-o";
    char args[] = "args=";
    char* arguments[] = {program, all, output, args, nullptr};
    pid_t child = 0;
    posix_spawn(&child, program, &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    waitpid(child, nullptr, 0);
}

/// Tells when the scan that asked it has published, and how long that kept the loop busy.
class ScanTable final : public ProcessTable {
public:
    explicit ScanTable(Clock& clock)
        : m_table(clock)
    {
    }

    bool wait(Seconds patience) override { return m_table.wait(patience); }

    void read(Receiver receiver) override
    {
        m_table.read([this, receiver = std::move(receiver)](const QByteArray& output) {
            QElapsedTimer stall;
            stall.start();
            receiver(output);
            longestStall = std::max(longestStall, stall.nsecsElapsed());
            scanned.quit();
        });
    }

    QEventLoop scanned;
    qint64 longestStall = 0;

private:
    PsProcessTable m_table;
};

class Sleepers {
public:
    void raiseTo(int count)
    {
        while (static_cast<int>(m_children.size()) < count) {
            const pid_t child = fork();
            if (child == 0) {
                for (;;)
                    pause();
            }
            if (child < 0)
                break;
            m_children.push_back(child);
        }
    }

    ~Sleepers()
    {
        for (const pid_t child : m_children)
            kill(child, SIGKILL);
        for (const pid_t child : m_children)
            waitpid(child, nullptr, 0);
    }

private:
    std::vector<pid_t> m_children;
};

} // namespace

int main(int argc, char* argv[])
{
    std::vector<int> counts;
    for (int i = 1; i < argc; ++i)
        counts.push_back(std::atoi(argv[i]));
    if (counts.empty())
        counts = {0, 1'350, 14'850};

    Sleepers sleepers;
    QCoreApplication application(argc, argv);
    TimerfdClock clock;
    FakeSettingsStore store;
    AppSettings settings(store);
    FakeRunningApplications applications;
    ScanTable table(clock);
    ProcessMonitor monitor(settings, table, applications, clock, [] { return QSet<QString>(); });

    std::printf("%-10s %-6s %-12s %-12s %-7s %s\n",
        "sleepers",
        "runs",
        "ps CPU ms",
        "scan CPU ms",
        "ratio",
        "longest stall ms");
    for (const int count : counts) {
        sleepers.raiseTo(count);
        const int runs = count > 5'000 ? 10 : 40;
        std::vector<double> bare;
        std::vector<double> scans;
        table.longestStall = 0;
        // In turns, so that both see the same machine.
        for (int run = 0; run < runs; ++run) {
            const double before = cpuMilliseconds();
            runBarePs();
            const double between = cpuMilliseconds();
            monitor.scan();
            table.scanned.exec();
            scans.push_back(cpuMilliseconds() - between);
            bare.push_back(between - before);
        }
        std::ranges::sort(bare);
        std::ranges::sort(scans);
        const double ps = bare[bare.size() / 2];
        const double scan = scans[scans.size() / 2];
        std::printf("%-10d %-6d %-12.2f %-12.2f %-7.2f %.1f\n",
            count,
            runs,
            ps,
            scan,
            scan / ps,
            static_cast<double>(table.longestStall) / 1e6);
        std::fflush(stdout);
    }
    return 0;
}
