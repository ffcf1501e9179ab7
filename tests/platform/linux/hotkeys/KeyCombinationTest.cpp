// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/KeyCombination.h"

#include "platform/HotKeys.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class KeyCombinationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void commandOptionAIsSuperAltA()
    {
        const auto keys = KeyCombination::fromCarbon(0, 0x900);
        QVERIFY(keys);
        QCOMPARE(*keys, (KeyCombination{.letter = 'a', .super = true, .alt = true}));
        QCOMPARE(keys->qtKey(), 402653249);
        QCOMPARE(keys->xdgTrigger(), u"LOGO+ALT+a"_s);
        QCOMPARE(keys->gtkAccelerator(), u"<Super><Alt>a"_s);
    }

    void everyModifierIsTranslated()
    {
        const auto keys = KeyCombination::fromCarbon(KeyCodes::ansiS,
            KeyModifiers::command | KeyModifiers::shift | KeyModifiers::option | KeyModifiers::control);
        QVERIFY(keys);
        QCOMPARE(keys->qtKey(),
            static_cast<int>(Qt::META) | static_cast<int>(Qt::ALT) | static_cast<int>(Qt::SHIFT)
                | static_cast<int>(Qt::CTRL) | static_cast<int>(Qt::Key_S));
        QCOMPARE(keys->xdgTrigger(), u"LOGO+CTRL+ALT+SHIFT+s"_s);
        QCOMPARE(keys->gtkAccelerator(), u"<Super><Control><Alt><Shift>s"_s);
    }

    void lettersAreFoundAtTheirCarbonCodes_data()
    {
        QTest::addColumn<uint>("code");
        QTest::addColumn<char>("letter");
        // kVK_ANSI_* of HIToolbox/Events.h
        QTest::newRow("z") << 6U << 'z';
        QTest::newRow("v") << 9U << 'v';
        QTest::newRow("b") << 11U << 'b';
        QTest::newRow("q") << 12U << 'q';
        QTest::newRow("t") << 17U << 't';
        QTest::newRow("o") << 31U << 'o';
        QTest::newRow("u") << 32U << 'u';
        QTest::newRow("i") << 34U << 'i';
        QTest::newRow("p") << 35U << 'p';
        QTest::newRow("l") << 37U << 'l';
        QTest::newRow("j") << 38U << 'j';
        QTest::newRow("k") << 40U << 'k';
        QTest::newRow("n") << 45U << 'n';
        QTest::newRow("m") << 46U << 'm';
    }

    void lettersAreFoundAtTheirCarbonCodes()
    {
        QFETCH(uint, code);
        const auto keys = KeyCombination::fromCarbon(code, KeyModifiers::command);
        QVERIFY(keys);
        QTEST(keys->letter, "letter");
    }

    void whatNoDesktopCouldKeepIsNoCombination_data()
    {
        QTest::addColumn<uint>("code");
        QTest::addColumn<uint>("modifiers");
        QTest::newRow("the key is no letter") << 18U << 0x900U;
        QTest::newRow("the key is beyond all letters") << 0xffffffffU << 0x900U;
        QTest::newRow("no modifier") << 0U << 0U;
        QTest::newRow("only shift") << 0U << 0x200U;
        QTest::newRow("a lock key as modifier") << 0U << 0xd00U;
    }

    void whatNoDesktopCouldKeepIsNoCombination()
    {
        QFETCH(uint, code);
        QFETCH(uint, modifiers);
        QVERIFY(!KeyCombination::fromCarbon(code, modifiers));
    }
};

QTEST_GUILESS_MAIN(KeyCombinationTest)
#include "KeyCombinationTest.moc"
