// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11KeyMap.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class X11KeyMapTest : public QObject {
    Q_OBJECT

    using KeyCodes = std::vector<X11KeyMap::KeyCode>;

    static constexpr std::uint32_t cyrillicEf = 0x6c6;
    static constexpr std::uint32_t numLock = 0xff7f;
    static constexpr std::uint32_t scrollLock = 0xff14;

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theLetterOfTheFirstLayoutWins()
    {
        // us, fr: the key right of Caps Lock and the one above it.
        const X11KeyMap map{
            .firstKeyCode = 24, .symbols = {'q', 'Q', 'a', 'A', 'a', 'A', 'q', 'Q'}, .symbolsPerKey = 4};
        QCOMPARE(map.keysOf('a'), KeyCodes{25});
    }

    void aLetterOfAnotherLayoutCountsWhereTheFirstHasNone()
    {
        const X11KeyMap map{.firstKeyCode = 38, .symbols = {cyrillicEf, cyrillicEf, 'a', 'A'}, .symbolsPerKey = 4};
        QCOMPARE(map.keysOf('a'), KeyCodes{38});
    }

    void aKeyboardWithoutTheLetterHasItInItsPlace()
    {
        const X11KeyMap map{.firstKeyCode = 38, .symbols = {cyrillicEf, cyrillicEf}, .symbolsPerKey = 2};
        QCOMPARE(map.keysOf('a'), KeyCodes{38});
        QCOMPARE(map.keysOf('q'), KeyCodes{24});
        QCOMPARE(map.keysOf('m'), KeyCodes{58});
    }

    void twoKeysWithTheLetterBothCount()
    {
        const X11KeyMap map{.firstKeyCode = 8, .symbols = {'a', 'b', 'a'}, .symbolsPerKey = 1};
        QCOMPARE(map.keysOf('a'), (KeyCodes{8, 10}));
    }

    void theLocksAreFoundOnWhateverModifierTheyAre()
    {
        X11KeyMap map{.firstKeyCode = 77,
            .symbols = {numLock, scrollLock},
            .symbolsPerKey = 1,
            .modifierKeys = KeyCodes(16, 0),
            .keysPerModifier = 2};
        QCOMPARE(map.lockCombinations(), (std::vector<std::uint16_t>{0, 2}));
        // Mod2 and Mod5.
        map.modifierKeys[4 * 2 + 1] = 77;
        map.modifierKeys[7 * 2] = 78;
        QCOMPARE(map.lockCombinations(), (std::vector<std::uint16_t>{0, 2, 16, 18, 128, 130, 144, 146}));
        // Both on one.
        map.modifierKeys[4 * 2 + 1] = 78;
        map.modifierKeys[4 * 2] = 77;
        map.modifierKeys[7 * 2] = 0;
        QCOMPARE(map.lockCombinations(), (std::vector<std::uint16_t>{0, 2, 16, 18}));
    }

    void aServerWithoutAMappingHasEveryLetterInItsPlace()
    {
        const X11KeyMap map;
        QCOMPARE(map.keysOf('a'), KeyCodes{38});
        QCOMPARE(map.lockCombinations(), (std::vector<std::uint16_t>{0, 2}));
    }
};

QTEST_GUILESS_MAIN(X11KeyMapTest)
#include "X11KeyMapTest.moc"
