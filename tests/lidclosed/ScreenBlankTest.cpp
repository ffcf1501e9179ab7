// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/ScreenBlank.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeDisplayPower.h"
#include "fakes/FakeLidSensor.h"
#include "support/TestSupport.h"

#include <memory>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class ScreenBlankTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_display.calls.clear();
        m_lid.closed = false;
        m_screen = std::make_unique<ScreenBlank>(m_display, m_lid, m_clock);
    }

    void cleanup()
    {
        m_screen.reset();
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void closingTheLidSwitchesTheDisplayOffOnce()
    {
        update({.awake = true, .lidClosed = false, .screenOffOnLidClose = true});
        QCOMPARE(m_display.calls, QStringList());
        closeWhileAwake();
        closeWhileAwake();
        QCOMPARE(m_display.calls, QStringList{u"sleep"_s});
    }

    void closingTheLidAgainSwitchesTheDisplayOffAgain()
    {
        closeWhileAwake();
        update({.awake = true, .lidClosed = false, .screenOffOnLidClose = true});
        closeWhileAwake();
        QCOMPARE(m_display.calls, (QStringList{u"sleep"_s, u"wake"_s, u"sleep"_s}));
    }

    void withoutTheWishTheDisplayStaysOn()
    {
        update({.awake = true, .lidClosed = true, .screenOffOnLidClose = false});
        QCOMPARE(m_display.calls, QStringList());
    }

    void theWishCountsWhileTheLidIsClosed()
    {
        update({.awake = true, .lidClosed = true, .screenOffOnLidClose = false});
        closeWhileAwake();
        QCOMPARE(m_display.calls, QStringList{u"sleep"_s});
    }

    void aMachineThatIsNotKeptAwakeIsLeftAlone()
    {
        update({.awake = false, .lidClosed = true, .screenOffOnLidClose = true});
        QCOMPARE(m_display.calls, QStringList());
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void theEndOfKeepAwakeMakesTheNextClosureCountAsNew()
    {
        closeWhileAwake();
        m_lid.closed = true;
        end();
        closeWhileAwake();
        QCOMPARE(m_display.calls, (QStringList{u"sleep"_s, u"sleep"_s}));
    }

    void openingTheLidWakesTheDisplayOnce()
    {
        closeWhileAwake();
        update({.awake = true, .lidClosed = false, .screenOffOnLidClose = true});
        update({.awake = true, .lidClosed = false, .screenOffOnLidClose = true});
        QCOMPARE(m_display.calls, (QStringList{u"sleep"_s, u"wake"_s}));
    }

    void openingTheLidAfterKeepAwakeHasEndedWakesTheDisplay()
    {
        closeWhileAwake();
        m_lid.closed = true;
        end();
        m_clock.advance(1min);
        QCOMPARE(m_display.calls, QStringList{u"sleep"_s});
        m_lid.closed = false;
        m_clock.advance(2s);
        QCOMPARE(m_display.calls, (QStringList{u"sleep"_s, u"wake"_s}));
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void anUnknownLidIsNotAnOpenOne()
    {
        closeWhileAwake();
        m_lid.closed.reset();
        end();
        m_clock.advance(1min);
        QCOMPARE(m_display.calls, QStringList{u"sleep"_s});
        m_lid.closed = false;
        m_clock.advance(2s);
        QCOMPARE(m_display.calls, (QStringList{u"sleep"_s, u"wake"_s}));
    }

    void keepingAwakeAgainIsNoReasonToWakeTheDisplay()
    {
        closeWhileAwake();
        m_lid.closed = true;
        end();
        // A reading that is not there yet counts as open.
        update({.awake = true, .lidClosed = false, .screenOffOnLidClose = true});
        closeWhileAwake();
        QCOMPARE(m_clock.pending(), std::size_t{0});
        QVERIFY(!m_display.calls.contains(u"wake"_s));
    }

    void aDisplayThatNobodySwitchedOffIsNotWoken()
    {
        update({.awake = true, .lidClosed = true, .screenOffOnLidClose = false});
        update({.awake = true, .lidClosed = false, .screenOffOnLidClose = false});
        QCOMPARE(m_display.calls, QStringList());
        QCOMPARE(m_clock.pending(), std::size_t{0});
    }

    void aDisplayThatCannotBeSwitchedOffIsLoggedAndNotTriedAgain()
    {
        closeWhileAwake();
        expectLog(QtCriticalMsg, u"^pmset displaysleepnow failed: no such display$"_s);
        m_display.finish(u"no such display"_s);
        closeWhileAwake();
        QCOMPARE(m_display.calls, QStringList{u"sleep"_s});
    }

    void aDisplayThatIsOffIsNotLogged()
    {
        closeWhileAwake();
        m_display.finish();
    }

private:
    void update(const ScreenBlank::Situation& situation) { m_screen->update(situation); }

    void closeWhileAwake() { update({.awake = true, .lidClosed = true, .screenOffOnLidClose = true}); }

    void end() { update({.awake = false, .lidClosed = false, .screenOffOnLidClose = true}); }

    FakeClock m_clock;
    FakeDisplayPower m_display;
    FakeLidSensor m_lid;
    std::unique_ptr<ScreenBlank> m_screen;
};

QTEST_GUILESS_MAIN(ScreenBlankTest)
#include "ScreenBlankTest.moc"
