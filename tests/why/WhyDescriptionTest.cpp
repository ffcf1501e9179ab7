// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "why/WhyDescription.h"

#include "fakes/FakeSleepLocks.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// 22:13:20 UTC.
constexpr TimePoint now{Seconds{1'700'000'000}};

WhyReport everything()
{
    return {.now = now,
        .runningSince = now - 24h,
        .isAwake = true,
        .statusReason = u"Awake — 11 min left"_s,
        .active = {u"Claude Code"_s},
        .sessionEnd = now + 10min,
        .runsWithLidClosed = true,
        .holds = {{PowerAssertionType::preventUserIdleSystemSleep, u"logind"_s, u"idle"_s, true},
            {PowerAssertionType::preventUserIdleSystemSleep, u"session manager"_s, u"suspend"_s, true},
            {PowerAssertionType::preventUserIdleDisplaySleep, u"screen saver"_s, u"inhibit"_s, false}},
        .locks = {{FakeSleepLocks::ours(u"logind"_s, {}),
                      FakeSleepLocks::ours(u"logind"_s, SleepLockEffect::lid | SleepLockEffect::sleep, 17),
                      FakeSleepLocks::lock(u"Firefox"_s,
                          u"session manager"_s,
                          SleepLockEffect::idleSleep | SleepLockEffect::idleDisplay,
                          u"Playing a film"_s,
                          4711),
                      FakeSleepLocks::lock(u"rsync"_s, u"logind"_s, {})},
            {u"KDE power management"_s}},
        .idleRules = {{u"logind"_s, IdleSleepAction::nothing, {}},
            {u"GNOME"_s, IdleSleepAction::suspend, 20min},
            {u"swayidle"_s, {}, {}}},
        .hooks = {{u"claude"_s, u"Claude Code"_s, now - 60s}, {u"codex"_s, u"Codex"_s, {}}},
        .journal = {{{}, now - 10min, JournalEntry::Kind::on, u"Awake · 1 agent"_s},
            {{}, now - 25h, JournalEntry::Kind::off, u"Dozing — nothing to watch"_s}},
        .sleeps = QList<PastSleep>{{now - 24h, now - 16h}, {now - 15min, {}}}};
}

QJsonObject json(const WhyReport& report)
{
    return QJsonDocument::fromJson(WhyDescription::json(report).toUtf8()).object();
}

} // namespace

class WhyDescriptionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("TZ", "UTC");
        tzset();
    }

    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void peopleReadSentencesAndThenLists()
    {
        const QString expected = u"Tarvik keeps this computer awake for a timed session, until 22:23, and because work "
                                 u"is going on: Claude Code.\n"
                                 u"It would stay awake without Tarvik, too, because of Firefox.\n"
                                 u"Its lid is closed, and Tarvik keeps it running all the same.\n"
                                 u"This computer last went to sleep at 21:58; Tarvik was not keeping it awake (since "
                                 u"2023-11-13 21:13: Dozing — "
                                 u"nothing to watch).\n"
                                 u"\n"
                                 u"  Tarvik holds off  sleep when idle (logind)\n"
                                 u"                    sleep when idle (session manager)\n"
                                 u"                    displays off when idle (screen saver), not confirmed\n"
                                 u"                    every sleep, sleep when the lid is closed (logind)\n"
                                 u"  Others hold off   Firefox: sleep when idle, displays off when idle (session "
                                 u"manager): Playing a film\n"
                                 u"                    rsync: nothing on this desktop (logind)\n"
                                 u"  Do not tell       KDE power management\n"
                                 u"  When idle         logind does not put it to sleep\n"
                                 u"                    GNOME suspends it after 20 min without activity\n"
                                 u"                    what swayidle would do when nobody uses it is not known\n"
                                 u"  Hooks             Claude Code, last event 22:12\n"
                                 u"                    Codex, no event yet\n"
                                 u"  Lately            2023-11-13 21:13  Tarvik: Dozing — nothing to watch\n"
                                 u"                    2023-11-13 22:13  The computer slept until 06:13\n"
                                 u"                    21:58  The computer went to sleep\n"
                                 u"                    22:03  Tarvik: Awake · 1 agent"_s;
        QCOMPARE(WhyDescription::text(everything()).split(u'\n'), expected.split(u'\n'));
    }

    void emptyListsAreLeftOutButThoseOfLocks()
    {
        const QString expected = u"Nothing holds this computer awake; what would put it to sleep is not known.\n"
                                 u"Tarvik does not keep it awake (Off).\n"
                                 u"When this computer slept last is not known.\n"
                                 u"\n"
                                 u"  Tarvik holds off  nothing\n"
                                 u"  Others hold off   nothing"_s;
        QCOMPARE(WhyDescription::text({.now = now, .statusReason = u"Off"_s}).split(u'\n'), expected.split(u'\n'));
    }

    void aHoldThatNobodyGoesByIsSaidToBeOne()
    {
        WhyReport report = everything();
        report.locks.locks.removeAt(1);
        QVERIFY(WhyDescription::text(report).contains(
            u"\n  Tarvik holds off  sleep when idle (logind), without effect on this desktop\n"_s));
        const QJsonValue hold = json(report)[u"tarvik"][u"holds"][0];
        QCOMPARE(hold[u"confirmed"], true);
        QCOMPARE(hold[u"effective"], false);
    }

    void onlyTheLastChangesAreListed()
    {
        WhyReport report{.now = now};
        for (int minutes = 0; minutes < 200; ++minutes) {
            report.journal.append(
                {{}, now - std::chrono::minutes(minutes), JournalEntry::Kind::on, u"%1"_s.arg(minutes)});
        }
        const QString text = WhyDescription::text(report);
        QVERIFY(text.contains(u"  Lately            22:02  Tarvik: 11\n"_s));
        QVERIFY(text.endsWith(u"\n                    22:13  Tarvik: 0"_s));
        QCOMPARE(json(report)[u"journal"].toArray().size(), 200);
    }

    void programsReadTheSame()
    {
        const QJsonObject object = json(everything());
        QCOMPARE(object.keys(),
            (QStringList{u"hooks"_s,
                u"idleSleep"_s,
                u"isKeptAwake"_s,
                u"isRunning"_s,
                u"journal"_s,
                u"locks"_s,
                u"remarks"_s,
                u"silentServices"_s,
                u"sleeps"_s,
                u"tarvik"_s,
                u"whyAwake"_s,
                u"whySlept"_s}));
        QCOMPARE(object[u"isRunning"], true);
        QCOMPARE(object[u"isKeptAwake"], true);
        QCOMPARE(object[u"remarks"].toArray().size(), 2);
        const QJsonObject tarvik = object[u"tarvik"].toObject();
        QCOMPARE(tarvik[u"isAwake"], true);
        QCOMPARE(tarvik[u"keepsAwake"], true);
        QCOMPARE(tarvik[u"reason"], u"Awake — 11 min left"_s);
        QCOMPARE(tarvik[u"activeAgents"], QJsonArray{u"Claude Code"_s});
        QCOMPARE(tarvik[u"sessionEnd"], 1'700'000'600);
        QCOMPARE(tarvik[u"runsWithLidClosed"], true);
        const QJsonObject hold{{u"type"_s, u"PreventUserIdleDisplaySleep"_s},
            {u"service"_s, u"screen saver"_s},
            {u"what"_s, u"inhibit"_s},
            {u"confirmed"_s, false},
            {u"effective"_s, false}};
        QCOMPARE(tarvik[u"holds"][2], hold);
        const QJsonObject lock{{u"program"_s, u"Firefox"_s},
            {u"reason"_s, u"Playing a film"_s},
            {u"service"_s, u"session manager"_s},
            {u"effects"_s, QJsonArray{u"idleSleep"_s, u"idleDisplay"_s}},
            {u"process"_s, 4711},
            {u"isOurs"_s, false}};
        QCOMPARE(object[u"locks"][2], lock);
        QCOMPARE(object[u"silentServices"], QJsonArray{u"KDE power management"_s});
        const QJsonObject rule{{u"service"_s, u"GNOME"_s}, {u"action"_s, u"suspend"_s}, {u"afterSeconds"_s, 1200}};
        QCOMPARE(object[u"idleSleep"][1], rule);
        const QJsonObject hook{{u"id"_s, u"claude"_s}, {u"label"_s, u"Claude Code"_s}, {u"lastEvent"_s, 1'699'999'940}};
        QCOMPARE(object[u"hooks"][0], hook);
        const QJsonObject entry{{u"at"_s, 1'699'999'400}, {u"kind"_s, u"on"_s}, {u"reason"_s, u"Awake · 1 agent"_s}};
        QCOMPARE(object[u"journal"][0], entry);
        const QJsonObject sleep{{u"from"_s, 1'699'913'600}, {u"until"_s, 1'699'942'400}};
        QCOMPARE(object[u"sleeps"][0], sleep);
    }

    void whatIsUnknownIsNullInJson()
    {
        const QJsonObject object = json(everything());
        QVERIFY(object[u"locks"][3][u"process"].isNull());
        QVERIFY(object[u"idleSleep"][2][u"action"].isNull());
        QVERIFY(object[u"idleSleep"][2][u"afterSeconds"].isNull());
        QVERIFY(object[u"hooks"][1][u"lastEvent"].isNull());
        QVERIFY(object[u"sleeps"][1][u"until"].isNull());
        const QJsonObject nothing = json({.now = now});
        QVERIFY(nothing[u"sleeps"].isNull());
        QVERIFY(nothing[u"tarvik"][u"sessionEnd"].isNull());
        QCOMPARE(nothing[u"isKeptAwake"], false);
    }

    void theTerminalIsNotSteeredByOtherPrograms()
    {
        const QString nasty = u"\u009b2J\u202ex\ny\u001b[2J\u007f"_s;
        WhyReport report{.now = now};
        report.locks.locks = {FakeSleepLocks::lock(nasty, u"logind"_s, SleepLockEffect::sleep, nasty)};
        const QString text = WhyDescription::text(report);
        QVERIFY2(text.startsWith(u"?2J?x?y?[2J? keeps this computer awake (?2J?x?y?[2J?).\n"_s), qPrintable(text));
        QVERIFY2(text.endsWith(u"?2J?x?y?[2J?: every sleep (logind): ?2J?x?y?[2J?"_s), qPrintable(text));
        const QString line = WhyDescription::json(report);
        QVERIFY(line.contains(u"\"program\":\"\\u009b2J\\u202ex\\ny\\u001b[2J\\u007f\""_s));
        QCOMPARE(json(report)[u"locks"][0][u"program"], nasty);
    }

    void aLongTextOfAnotherProgramIsCut()
    {
        WhyReport report{.now = now};
        const QString story(10'000, u'x');
        report.locks.locks = {FakeSleepLocks::lock(story, u"logind"_s, SleepLockEffect::sleep, story)};
        for (const QString& line : WhyDescription::text(report).split(u'\n'))
            QVERIFY2(line.size() < 240, qPrintable(line));
        QCOMPARE(json(report)[u"locks"][0][u"program"], story);
    }
};

QTEST_GUILESS_MAIN(WhyDescriptionTest)
#include "WhyDescriptionTest.moc"
