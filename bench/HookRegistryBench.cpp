// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// What one hook event costs while many leases are held, without the log and the bus. A renewal must not grow faster
// than the sorting of the list would: a ratio of about 10 per row, where the number of leases grows by 10.
#include "fakes/FakeClock.h"
#include "fakes/FakeHookChannel.h"
#include "hooks/HookMonitor.h"

#include <QLoggingCategory>

#include <cstdio>
#include <ctime>

using namespace Qt::StringLiterals;
using namespace Tarvik;

namespace {

using Map = QMap<QString, QString>;

struct Costs {
    double renewal = 0;
    double renewalAndList = 0;
    double releaseAndAcquire = 0;
};

/// Processor time per operation: other programs may be at work beside.
template <typename Operation>
double microseconds(int repetitions, Operation operation)
{
    const std::clock_t start = std::clock();
    for (int repetition = 0; repetition < repetitions; ++repetition)
        operation(repetition);
    return 1e6 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / repetitions;
}

Costs measure(int leases)
{
    FakeClock clock;
    FakeHookChannel channel;
    HookMonitor monitor(channel, clock);
    // Any step through the keys that does not follow their order.
    const auto key = [leases](int number) { return QString::number(number * 7919LL % leases); };
    const auto announce = [&](const QString& action, int number) {
        clock.advance(Seconds{1e-6});
        channel.announce(Map{{u"action"_s, action}, {u"session"_s, key(number)}, {u"tool"_s, u"claude"_s}});
    };
    for (int number = 0; number < leases; ++number)
        announce(u"acquire"_s, number);
    if (monitor.sessions().size() != leases)
        qFatal("%d leases were to be held", leases);

    Costs costs;
    costs.renewal = microseconds(100'000, [&](int number) { announce(u"acquire"_s, number); });
    costs.renewalAndList = microseconds(5'000'000 / leases / 10 + 5, [&](int number) {
        announce(u"acquire"_s, number);
        if (monitor.sessions().size() != leases)
            qFatal("a lease was lost");
    });
    costs.releaseAndAcquire = microseconds(100'000, [&](int number) {
        announce(u"release"_s, number);
        announce(u"acquire"_s, number);
    });
    return costs;
}

void printRow(int leases, const Costs& costs, const Costs& before)
{
    const auto ratio = [](double cost, double earlier) { return earlier > 0 ? cost / earlier : 0.0; };
    std::printf("%10d %12.2f %6.1f %16.1f %6.1f %20.2f %6.1f\n",
        leases,
        costs.renewal,
        ratio(costs.renewal, before.renewal),
        costs.renewalAndList,
        ratio(costs.renewalAndList, before.renewalAndList),
        costs.releaseAndAcquire,
        ratio(costs.releaseAndAcquire, before.releaseAndAcquire));
}

} // namespace

int main()
{
    QLoggingCategory::setFilterRules(u"*=false"_s);
    std::printf("%10s %12s %6s %16s %6s %20s %6s\n",
        "leases",
        "renewal us",
        "ratio",
        "and the list us",
        "ratio",
        "release+acquire us",
        "ratio");
    Costs before;
    for (const int leases : {1'000, 10'000, 100'000}) {
        const Costs costs = measure(leases);
        printRow(leases, costs, before);
        before = costs;
    }
    return 0;
}
