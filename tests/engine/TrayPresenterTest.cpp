// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/TrayPresenter.h"

#include "engine/CoordinatedMachine.h"
#include "fakes/FakeTrayItem.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class TrayPresenterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_presenter.reset();
        m_tray.emplace();
        m_machine.emplace();
    }

    void watchesWithTheLookingImage()
    {
        start();
        QCOMPARE(m_tray->appearance,
            (TrayAppearance{u"MenuLooking"_s,
                u"Tarvik — Watching"_s,
                u"Tarvik — Watching"_s,
                u"Nothing running to keep awake for"_s}));
    }

    void isActiveWhileAwake()
    {
        start();
        m_machine->setPower(true, 80);
        m_machine->run("claude\n");
        QCOMPARE(m_tray->appearance,
            (TrayAppearance{
                u"MenuActive"_s, u"Tarvik — Awake"_s, u"Tarvik — Awake"_s, u"Claude Code · charging 80%"_s}));
        m_machine->run("");
        QCOMPARE(m_tray->appearance.imageName, u"MenuLooking"_s);
    }

    void isIdleWhilePaused()
    {
        start();
        m_machine->settings->setRequireAC(true);
        m_machine->setPower(false, 80);
        m_machine->settle();
        m_machine->run("claude\n");
        QCOMPARE(m_tray->appearance,
            (TrayAppearance{u"MenuIdle"_s, u"Tarvik — Paused"_s, u"Tarvik — Paused"_s, u"running on battery"_s}));
    }

    void isIdleWhileSwitchedOff()
    {
        start();
        m_machine->run("claude\n");
        m_machine->settings->setIsEnabled(false);
        m_machine->settle();
        QCOMPARE(m_tray->appearance,
            (TrayAppearance{u"MenuIdle"_s, u"Tarvik — Off"_s, u"Tarvik — Off"_s, u"Not watching"_s}));
    }

    void noTooltipCoversTheOpenPanel()
    {
        start();
        m_presenter->setIsPanelOpen(true);
        QCOMPARE(m_tray->appearance, (TrayAppearance{u"MenuLooking"_s, {}, {}, {}}));
        m_machine->run("claude\n");
        QCOMPARE(m_tray->appearance, (TrayAppearance{u"MenuActive"_s, {}, {}, {}}));
        m_presenter->setIsPanelOpen(false);
        QCOMPARE(m_tray->appearance.tooltipTitle, u"Tarvik — Awake"_s);
        QVERIFY(m_tray->appearance.tooltipBody.startsWith("Claude Code"_L1));
    }

    void theMenuOffersWhatThePanelOffers()
    {
        start();
        QCOMPARE(FakeTrayItem::text(m_tray->menu),
            u"Open Tarvik… | Dozing — nothing to watch | - | Tarvik"
            " | Keep awake for… [10 minutes | 1 hour | 2 hours | All day (16 h)]"
            " | Lock & leave | - | Settings… | Quit Tarvik"_s);
        QVERIFY(!m_tray->entry(u"Dozing — nothing to watch"_s).isEnabled);
        QVERIFY(m_tray->entry(u"Settings…"_s).isEnabled);
        QCOMPARE(m_tray->entry(u"Tarvik"_s).isChecked, std::optional(true));
        QCOMPARE(m_tray->entry(u"Quit Tarvik"_s).isChecked, std::optional<bool>());
    }

    void theIdsAreUniqueAndStayTheSame()
    {
        start();
        QSet<int> before;
        collectIds(m_tray->menu, before);
        const int quit = m_tray->entry(u"Quit Tarvik"_s).id;
        m_tray->choose(u"1 hour"_s);
        QSet<int> after;
        collectIds(m_tray->menu, after);
        QVERIFY(after.contains(before));
        QCOMPARE(after.size(), before.size() + 2);
        QCOMPARE(m_tray->entry(u"Quit Tarvik"_s).id, quit);
    }

    void aRunningSessionCanBeChangedAndCancelled()
    {
        start();
        m_tray->choose(u"10 minutes"_s);
        QCOMPARE(FakeTrayItem::text(m_tray->menu),
            u"Open Tarvik… | Awake — 11 min left | - | Tarvik"
            " | Change session… [10 minutes | 1 hour | 2 hours | All day (16 h) | - | Cancel timer]"
            " | Lock & leave | - | Settings… | Quit Tarvik"_s);
        QCOMPARE(m_tray->appearance.imageName, u"MenuActive"_s);
        m_tray->choose(u"Cancel timer"_s);
        QCOMPARE(m_machine->coordinator->timedSessionEnd(), std::optional<TimePoint>());
        QCOMPARE(m_tray->entry(u"Cancel timer"_s).id, 0);
        QVERIFY(m_tray->entry(u"Keep awake for…"_s).id != 0);
    }

    void eachDurationStartsItsSession_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("minutes");
        QTest::newRow("ten minutes") << u"10 minutes"_s << 10;
        QTest::newRow("an hour") << u"1 hour"_s << 60;
        QTest::newRow("two hours") << u"2 hours"_s << 120;
        QTest::newRow("all day") << u"All day (16 h)"_s << 960;
    }

    void eachDurationStartsItsSession()
    {
        QFETCH(QString, label);
        QFETCH(int, minutes);
        start();
        m_tray->choose(u"10 minutes"_s);
        m_tray->choose(label);
        QCOMPARE(
            m_machine->coordinator->timedSessionEnd(), std::optional(m_machine->clock.now() + Seconds{minutes * 60.0}));
    }

    void theMenuFollowsTheEndOfASession()
    {
        start();
        m_tray->choose(u"10 minutes"_s);
        m_machine->clock.advance(Seconds{601});
        QCOMPARE(m_tray->entry(u"Cancel timer"_s).id, 0);
        QCOMPARE(m_tray->appearance.imageName, u"MenuLooking"_s);
    }

    void theSwitchTurnsOffAndOn()
    {
        start();
        m_tray->choose(u"Tarvik"_s);
        QVERIFY(!m_machine->settings->isEnabled());
        m_machine->settle();
        QCOMPARE(m_tray->entry(u"Tarvik"_s).isChecked, std::optional(false));
        m_tray->choose(u"Tarvik"_s);
        QVERIFY(m_machine->settings->isEnabled());
        m_machine->settle();
        QCOMPARE(m_tray->entry(u"Tarvik"_s).isChecked, std::optional(true));
    }

    void choicesAndClicksAreHandedOn()
    {
        start();
        QStringList calls;
        m_presenter->onLock = [&] { calls.append(u"lock"_s); };
        m_presenter->onQuit = [&] { calls.append(u"quit"_s); };
        m_presenter->onOpenPanel
            = [&](int x, int y, const QString& token) { calls.append(u"panel %1 %2 %3"_s.arg(x).arg(y).arg(token)); };
        m_tray->choose(u"Open Tarvik…"_s);
        m_tray->choose(u"Lock & leave"_s);
        m_tray->choose(u"Quit Tarvik"_s);
        m_tray->activated(12, 34, u"token"_s);
        QCOMPARE(calls, (QStringList{u"panel 0 0 "_s, u"lock"_s, u"quit"_s, u"panel 12 34 token"_s}));
    }

    void choicesThatNobodyHandlesAndUnknownOnesDoNothing()
    {
        start();
        const TrayMenu before = m_tray->menu;
        m_tray->choose(u"Open Tarvik…"_s);
        m_tray->choose(u"Lock & leave"_s);
        m_tray->choose(u"Settings…"_s);
        m_tray->choose(u"Quit Tarvik"_s);
        m_tray->activated(1, 2, {});
        for (const int id : {-1, 0, 2, 99, 104, 4711})
            m_tray->menuActivated(id);
        m_machine->settle();
        QCOMPARE(m_tray->menu, before);
        QVERIFY(m_machine->settings->isEnabled());
    }

    void aTrayThatDoesNotComeWithinTenSecondsIsReportedOnce()
    {
        m_tray->isHosted = false;
        start();
        m_machine->clock.advance(Seconds{9.9});
        expectLog(QtInfoMsg, u"^no panel shows the tray item; the application goes on without it$"_s);
        m_machine->clock.advance(Seconds{0.2});
        m_machine->clock.advance(Seconds{3600});
    }

    void aTrayThatComesInTimeIsNoNews()
    {
        QStringList lines;
        s_lines = &lines;
        const QtMessageHandler previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& text) { s_lines->append(text); });
        m_tray->isHosted = false;
        start();
        m_machine->clock.advance(Seconds{9.9});
        m_tray->isHosted = true;
        m_machine->clock.advance(Seconds{3600});
        qInstallMessageHandler(previous);
        QCOMPARE(lines, QStringList());
    }

    void clicksAfterItsEndDoNothing()
    {
        start();
        QStringList calls;
        m_presenter->onOpenPanel = [&](int, int, const QString&) { calls.append(u"panel"_s); };
        const int onOff = m_tray->entry(u"Tarvik"_s).id;
        m_presenter.reset();
        m_tray->activated(1, 2, {});
        m_tray->menuActivated(onOff);
        QCOMPARE(calls, QStringList());
        QVERIFY(m_machine->settings->isEnabled());
    }

private:
    void start()
    {
        m_machine->start();
        m_presenter.emplace(*m_machine->coordinator, *m_machine->settings, *m_tray, m_machine->clock);
    }

    static void collectIds(const TrayMenu& entries, QSet<int>& ids)
    {
        for (const TrayMenuEntry& entry : entries) {
            QVERIFY(entry.id > 0);
            QVERIFY2(!ids.contains(entry.id), qPrintable(entry.label));
            ids.insert(entry.id);
            collectIds(entry.entries, ids);
        }
    }

    static inline QStringList* s_lines = nullptr;
    std::optional<CoordinatedMachine> m_machine;
    std::optional<FakeTrayItem> m_tray;
    std::optional<TrayPresenter> m_presenter;
};

QTEST_GUILESS_MAIN(TrayPresenterTest)
#include "TrayPresenterTest.moc"
