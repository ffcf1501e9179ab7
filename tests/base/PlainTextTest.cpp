// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/PlainText.h"

#include "support/TestSupport.h"

#include <QRandomGenerator>

using namespace Tarvik;

class PlainTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void whatSteersIsReplaced_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* name, const char* text, const char* expected) {
            QTest::newRow(name) << QByteArray(text) << QByteArray(expected);
        };
        row("nothing", "", "");
        row("plain", "make -j8", "make -j8");
        row("letters of all sizes", "é€😀 Ω", "é€😀 Ω");
        row("an accent of its own", "e\xcc\x81", "e\xcc\x81");
        row("new lines", "a\nb\r\nc", "a?b??c");
        row("escape sequence", "\x1b[2J", "?[2J");
        row("delete", "a\x7f", "a?");
        row("C1 escape sequence",
            "\xc2\x9b"
            "2J\xc2\x80\xc2\x9f",
            "?2J??");
        row("just above C1", "\xc2\xa0", "\xc2\xa0");
        row("bidirectional override",
            "\xe2\x80\xae"
            "evil\xe2\x80\xac",
            "?evil?");
        row("isolate", "\xe2\x81\xa6x\xe2\x81\xa9", "?x?");
        row("marks", "\xe2\x80\x8e\xe2\x80\x8f\xd8\x9c", "???");
        row("separators", "\xe2\x80\xa8\xe2\x80\xa9", "??");
        row("stray bytes", "a\xff\x80z", "a??z");
        row("C1 as a bare byte",
            "\x9b"
            "2J",
            "?2J");
        row("cut off", "a\xe2\x82", "a??");
        row("overlong", "\xc0\x8a\xe0\x80\x8a", "?????");
        row("surrogate", "\xed\xa0\x80", "???");
        row("too great", "\xf4\x90\x80\x80", "????");
        QTest::newRow("zero") << QByteArray("a\0b", 3) << QByteArray("a?b");
    }

    void whatSteersIsReplaced()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, expected);
        QCOMPARE(QByteArray::fromStdString(PlainText::printable(text.toStdString())), expected);
    }

    void theLinesOfATextAreKeptAndIndented_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("empty") << QByteArray() << QByteArray();
        QTest::newRow("one line") << QByteArray("a line") << QByteArray("a line");
        QTest::newRow("two lines") << QByteArray("a\nb") << QByteArray("a\n    b");
        QTest::newRow("a line that is empty") << QByteArray("a\n\nb") << QByteArray("a\n    \n    b");
        QTest::newRow("an end of line at the end") << QByteArray("a\n") << QByteArray("a\n    ");
        QTest::newRow("other ends of lines") << QByteArray("a\r\vb\xe2\x80\xa8") << QByteArray("a??b?");
        QTest::newRow("controls in each line") << QByteArray("\x1b[2J\n\x1b[2J") << QByteArray("?[2J\n    ?[2J");
    }

    void theLinesOfATextAreKeptAndIndented()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, expected);
        QCOMPARE(QByteArray::fromStdString(PlainText::printableLines(text.toStdString())), expected);
    }

    void everyCharacterIsReadAsQtReadsIt()
    {
        for (char32_t code = 0; code <= 0x10ffff; ++code) {
            if (code >= 0xd800 && code <= 0xdfff)
                continue;
            const std::string text = QStringView(QChar::fromUcs4(code)).toUtf8().toStdString();
            const PlainText::Character first = PlainText::firstCharacter(text + 'x');
            QCOMPARE(first.size, text.size());
            QCOMPARE(static_cast<unsigned>(first.code), static_cast<unsigned>(code));
        }
    }

    void whatIsLeftOfAnyBytesIsValid()
    {
        QRandomGenerator random(11);
        for (int round = 0; round < 20'000; ++round) {
            std::string bytes;
            for (int left = random.bounded(8); left > 0; --left)
                bytes.push_back(
                    static_cast<char>(random.bounded(2) == 0 ? random.bounded(0xc0, 0x100) : random.bounded(0x100)));
            const QByteArray text = QByteArray::fromStdString(PlainText::printable(bytes));
            QVERIFY2(text.isValidUtf8(), QByteArray::fromStdString(bytes).toHex().constData());
        }
    }
};

QTEST_GUILESS_MAIN(PlainTextTest)
#include "PlainTextTest.moc"
