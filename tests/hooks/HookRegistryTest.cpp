// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookRegistry.h"

#include "support/TestSupport.h"

#include <QRandomGenerator>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;
using namespace Tarvik;

namespace {

TimePoint at(double seconds)
{
    return TimePoint(Seconds{seconds});
}

HookSession session(const QString& key, double acquiredAt, double expiresAt, const QString& tool = u"claude"_s)
{
    return {.key = key, .tool = tool, .reason = {}, .acquiredAt = at(acquiredAt), .expiresAt = at(expiresAt)};
}

QStringList liveKeys(const HookRegistry& registry, double now)
{
    QStringList keys;
    for (const HookSession& each : registry.live(at(now)))
        keys.append(each.key);
    return keys;
}

} // namespace

class HookRegistryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void sessionsAreEqualMemberByMember()
    {
        const HookSession original = session(u"a"_s, 1, 2);
        QVERIFY(original == session(u"a"_s, 1, 2));
        QVERIFY(original != session(u"b"_s, 1, 2));
        QVERIFY(original != session(u"a"_s, 1, 2, u"codex"_s));
        QVERIFY(original != session(u"a"_s, 0, 2));
        QVERIFY(original != session(u"a"_s, 1, 3));
        HookSession withReason = original;
        withReason.reason = QString();
        QVERIFY(original != withReason);
    }

    void anEmptyTableHasNoExpiry()
    {
        const HookRegistry registry;
        QCOMPARE(registry.liveCount(at(0)), 0);
        QVERIFY(registry.live(at(0)).isEmpty());
        QVERIFY(!registry.earliestExpiry());
    }

    void aLeaseIsDeadFromTheMomentOfItsExpiry()
    {
        HookRegistry registry;
        QVERIFY(registry.acquire(session(u"a"_s, 0, 10)));
        QCOMPARE(liveKeys(registry, 9.999), QStringList{u"a"_s});
        QCOMPARE(registry.liveCount(at(9.999)), 1);
        QCOMPARE(liveKeys(registry, 10), QStringList());
        QCOMPARE(registry.liveCount(at(10)), 0);
        QCOMPARE(registry.sessions().size(), 1);
    }

    void liveLeasesAreOrderedByAgeAndThenByKey()
    {
        HookRegistry registry;
        for (const auto& [key, acquiredAt] :
            QList<std::pair<QString, double>>{{u"b"_s, 5}, {u"z"_s, 1}, {u"a"_s, 5}, {u"é"_s, 5}, {u"B"_s, 5}})
            registry.acquire(session(key, acquiredAt, 100));
        QCOMPARE(liveKeys(registry, 6), QStringList({u"z"_s, u"B"_s, u"a"_s, u"b"_s, u"é"_s}));
    }

    void renewingKeepsTheAgeAndMovesTheExpiry()
    {
        HookRegistry registry;
        QVERIFY(registry.acquire(session(u"a"_s, 0, 10)));
        QVERIFY(registry.acquire(session(u"b"_s, 1, 10)));
        QVERIFY(!registry.acquire(session(u"a"_s, 5, 15, u"codex"_s)));
        QCOMPARE(registry.live(at(6)).first(), session(u"a"_s, 0, 15, u"codex"_s));
        QCOMPARE(registry.earliestExpiry(), at(10));
    }

    void aLapsedLeaseIsTakenAnew()
    {
        HookRegistry registry;
        registry.acquire(session(u"a"_s, 0, 10));
        QVERIFY(registry.acquire(session(u"a"_s, 10, 20)));
        QCOMPARE(registry.live(at(11)), QList<HookSession>{session(u"a"_s, 10, 20)});
    }

    void releasingTellsWhetherTheLeaseWasLive()
    {
        HookRegistry registry;
        registry.acquire(session(u"a"_s, 0, 10));
        registry.acquire(session(u"b"_s, 0, 10));
        QVERIFY(!registry.release(u"unknown"_s, at(1)));
        QVERIFY(registry.release(u"a"_s, at(1)));
        QVERIFY(!registry.release(u"a"_s, at(1)));
        QVERIFY(!registry.release(u"b"_s, at(10)));
        QVERIFY(registry.sessions().isEmpty());
        QVERIFY(!registry.earliestExpiry());
    }

    void releasingAllTellsWhetherAnyWasLive()
    {
        HookRegistry registry;
        QVERIFY(!registry.releaseAll(at(0)));
        registry.acquire(session(u"a"_s, 0, 10));
        QVERIFY(registry.releaseAll(at(9)));
        registry.acquire(session(u"a"_s, 9, 10));
        QVERIFY(!registry.releaseAll(at(10)));
        QVERIFY(registry.sessions().isEmpty());
    }

    void onlyLapsedLeasesAreDropped()
    {
        HookRegistry registry;
        registry.acquire(session(u"a"_s, 0, 10));
        registry.acquire(session(u"b"_s, 0, 11));
        registry.acquire(session(u"c"_s, 0, std::numeric_limits<double>::infinity()));
        QVERIFY(!registry.dropLapsed(at(9)));
        QVERIFY(registry.dropLapsed(at(11)));
        QVERIFY(!registry.dropLapsed(at(1e12)));
        QCOMPARE(liveKeys(registry, 1e12), QStringList{u"c"_s});
    }

    void aCopyIsAValueOfItsOwn()
    {
        HookRegistry registry;
        registry.acquire(session(u"a"_s, 0, 10));
        HookRegistry copy = registry;
        copy.releaseAll(at(1));
        QCOMPARE(registry.liveCount(at(1)), 1);
        QCOMPARE(copy.liveCount(at(1)), 0);
    }

    void thereIsRoomForAThousandLeases()
    {
        HookRegistry registry;
        for (int number = 0; number < HookRegistry::maximumCount; ++number) {
            const QString key = QString::number(number);
            QVERIFY(registry.hasRoomFor(key));
            registry.acquire(session(key, 0, 10));
        }
        QCOMPARE(registry.sessions().size(), 1000);
        // In the place of another it fits, beside it it does not.
        QVERIFY(registry.hasRoomFor(u"0"_s));
        QVERIFY(!registry.hasRoomFor(u"new"_s));
        registry.release(u"0"_s, at(1));
        QVERIFY(registry.hasRoomFor(u"new"_s));
    }

    void randomOperationsAgreeWithAPlainTable()
    {
        QRandomGenerator random(7);
        HookRegistry registry;
        QMap<QString, HookSession> plain;
        double now = 0;
        for (int step = 0; step < 20'000; ++step) {
            // The wall clock may also be set back.
            now += random.bounded(10) == 0 ? -double(random.bounded(3)) : random.bounded(1.0);
            const QString key = QString::number(random.bounded(20));
            const auto held = plain.constFind(key);
            const bool wasLive = held != plain.constEnd() && held->isLive(at(now));
            switch (random.bounded(8)) {
            case 0:
                QCOMPARE(registry.release(key, at(now)), wasLive);
                plain.remove(key);
                break;
            case 1:
                registry.dropLapsed(at(now));
                plain.removeIf([&](auto each) { return !each.value().isLive(at(now)); });
                break;
            default: {
                HookSession taken = session(key, now, now + random.bounded(6));
                QCOMPARE(registry.acquire(taken), !wasLive);
                if (wasLive)
                    taken.acquiredAt = held->acquiredAt;
                plain.insert(key, taken);
            }
            }
            QList<HookSession> live;
            std::ranges::copy_if(
                plain, std::back_inserter(live), [&](const HookSession& each) { return each.isLive(at(now)); });
            std::ranges::stable_sort(live, {}, &HookSession::acquiredAt);
            QCOMPARE(registry.live(at(now)), live);
            QCOMPARE(registry.liveCount(at(now)), live.size());
            const auto earliest = std::ranges::min_element(plain, {}, &HookSession::expiresAt);
            QCOMPARE(
                registry.earliestExpiry(), earliest == plain.end() ? std::nullopt : std::optional(earliest->expiresAt));
        }
    }
};

QTEST_GUILESS_MAIN(HookRegistryTest)
#include "HookRegistryTest.moc"
