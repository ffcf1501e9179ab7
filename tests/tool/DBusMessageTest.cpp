// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/DBusMessage.h"

#include "support/TestSupport.h"
#include "tool/Announcement.h"
#include "tool/DBusReader.h"
#include "tool/DBusWriter.h"

using namespace Tarvik;
using namespace std::string_view_literals;

class DBusMessageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void helloHasTheBytesOfTheSpecification()
    {
        const auto expected = "l\1\0\1\0\0\0\0\1\0\0\0\x6d\0\0\0"
                              "\1\1o\0\x15\0\0\0/org/freedesktop/DBus\0\0\0"
                              "\2\1s\0\x14\0\0\0org.freedesktop.DBus\0\0\0\0"
                              "\3\1s\0\5\0\0\0Hello\0\0\0"
                              "\6\1s\0\x14\0\0\0org.freedesktop.DBus\0\0\0"sv;
        const std::string bytes = encode(busCall("Hello"), 1);
        QCOMPARE(bytes.size() % 8, std::size_t(0));
        QCOMPARE(QByteArray::fromStdString(bytes).left(int(expected.size())).toHex(' '),
            QByteArray(expected.data(), qsizetype(expected.size())).toHex(' '));
    }

    void aMessageSurvivesTheJourney()
    {
        DBusWriter body;
        body.string("text");
        DBusMessage message;
        message.type = DBusMessageType::error;
        message.flags = DBusMessage::noAutoStart;
        message.replySerial = 77;
        message.destination = ":1.5";
        message.path = "/a";
        message.interface = "a.b";
        message.member = "M";
        message.errorName = "a.b.Error";
        message.signature = "s";
        message.body = body.bytes();
        const std::string bytes = encode(message, 9);
        QCOMPARE(encodedSize(bytes), std::optional(bytes.size()));
        QVERIFY(decode(bytes) == message);
    }

    void theHookSignalIsAMapOfTexts()
    {
        Announcement announcement;
        announcement.action = "acquire";
        announcement.session = "claude:1";
        announcement.tool = "claude";
        const DBusMessage message = hookSignal(announcement);
        QCOMPARE(message.path, std::string("/com/morvanta/tarvik/Hook"));
        QCOMPARE(message.interface, std::string("com.morvanta.tarvik.hook"));
        QCOMPARE(message.member, std::string("Event"));
        QCOMPARE(message.signature, std::string("a{ss}"));
        QVERIFY(message.destination.empty());

        DBusReader reader(message.body);
        std::vector<std::pair<std::string, std::string>> entries;
        const std::size_t end = reader.beginArray(8);
        while (reader.isBefore(end)) {
            reader.align(8);
            const auto key = reader.string();
            entries.emplace_back(key, reader.string());
        }
        QVERIFY(!reader.hasFailed());
        QCOMPARE(reader.position(), message.body.size());
        const std::vector<std::pair<std::string, std::string>> expected{
            {"action", "acquire"}, {"session", "claude:1"}, {"tool", "claude"}};
        QVERIFY(entries == expected);
    }

    void aMessageThatIsCutOffIsNone()
    {
        const std::string bytes = encode(busCall("NameHasOwner", "a.b"), 2);
        for (std::size_t size = 0; size < bytes.size(); ++size)
            QVERIFY(!decode(bytes.substr(0, size)));
        QVERIFY(decode(bytes));
    }

    void noDamageIsReadAsMoreThanThereIs()
    {
        const std::string bytes = encode(busCall("NameHasOwner", "a.b"), 2);
        for (std::size_t index = 0; index < bytes.size(); ++index) {
            for (const char value : {'\0', '\1', '\x7f', '\xff', 'a', '('}) {
                std::string damaged = bytes;
                damaged[index] = value;
                if (const auto message = decode(damaged))
                    QVERIFY(message->body.size() <= bytes.size());
            }
        }
    }

    void anExcessiveSizeIsRefused()
    {
        std::string bytes = encode(busCall("Hello"), 1);
        bytes[7] = '\x7f';
        QVERIFY(!encodedSize(bytes));
    }

    void theOtherByteOrderIsRefused() { QVERIFY(!encodedSize("B\2\1\1"sv)); }

    void tooFewBytesAreNotYetAnError() { QCOMPARE(encodedSize("l\2\1\1"sv), std::optional(std::size_t(0))); }

    void aTruthValueOtherThanZeroOrOneFails()
    {
        DBusReader reader("\2\0\0\0"sv);
        QVERIFY(!reader.boolean());
        QVERIFY(reader.hasFailed());
    }

    void textIsCleanedForTheWire_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("clean");

        QTest::newRow("plain") << QByteArray("claude:1 é € 😀") << QByteArray("claude:1 é € 😀");
        QTest::newRow("control") << QByteArray("a\nb\x7f\x1b") << QByteArray("a?b??");
        QTest::newRow("control beyond ASCII") << QByteArray("\u009b2J\u202ex") << QByteArray("?2J?x");
        QTest::newRow("zero") << QByteArray("a\0b", 3) << QByteArray("a?b");
        QTest::newRow("lone continuation") << QByteArray("a\x80") << QByteArray("a?");
        QTest::newRow("cut off") << QByteArray("a\xe2\x82") << QByteArray("a??");
        QTest::newRow("overlong") << QByteArray("\xc0\xaf\xe0\x80\xaf") << QByteArray("?????");
        QTest::newRow("surrogate") << QByteArray("\xed\xa0\x80") << QByteArray("???");
        QTest::newRow("beyond Unicode") << QByteArray("\xf4\x90\x80\x80\xff") << QByteArray("?????");
        QTest::newRow("long") << QByteArray(5000, 'x') << QByteArray(4096, 'x');
        QTest::newRow("long, cut between characters") << QByteArray(4095, 'x') + "é" << QByteArray(4095, 'x');
    }

    void textIsCleanedForTheWire()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, clean);
        QCOMPARE(QByteArray::fromStdString(cleanText(text.toStdString())), clean);
    }
};

QTEST_GUILESS_MAIN(DBusMessageTest)
#include "DBusMessageTest.moc"
