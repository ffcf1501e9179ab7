// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hookconfig/JsonDocument.h"

#include "support/TestSupport.h"

#include <string>

using namespace Qt::StringLiterals;
using namespace Tarvik;

namespace {

constexpr std::size_t noLimit = std::string::npos;

std::string nested(int depth)
{
    const auto count = static_cast<std::size_t>(depth);
    return std::string(count, '[') + std::string(count, ']');
}

} // namespace

class JsonDocumentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void numbersKeepTheirText_data()
    {
        QTest::addColumn<QByteArray>("number");
        for (const char* number : {"0",
                 "-0",
                 "-0.0",
                 "1",
                 "1.0",
                 "1.50",
                 "1e5",
                 "1E+5",
                 "1e-05",
                 "-12",
                 "9007199254740993",
                 "12345678901234567890123456789",
                 "1e400",
                 "-1e-999",
                 "1e99999999999999999999",
                 "3.14159265358979323846264338327950288419716939937510"})
            QTest::newRow(number) << QByteArray(number);
        QTest::newRow("a thousand digits") << QByteArray(1000, '7');
    }
    void numbersKeepTheirText()
    {
        QFETCH(const QByteArray, number);
        const auto document = JsonDocument::parse("[" + number.toStdString() + "]");
        QVERIFY(document.has_value());
        QCOMPARE(JsonDocument::print(*document, noLimit), "[\n  " + number.toStdString() + "\n]\n");
    }

    void textKeepsItsMeaning_data()
    {
        QTest::addColumn<QByteArray>("read");
        QTest::addColumn<QByteArray>("written");
        const auto row = [](const char* name, const char* read, const char* written) {
            QTest::newRow(name) << QByteArray(read) << QByteArray(written);
        };
        row("empty", R"("")", R"("")");
        row("quote and backslash", "\"\\\"\\\\\"", "\"\\\"\\\\\"");
        row("slash", R"("a\/b/c")", R"("a/b/c")");
        row("short escapes", R"("\b\f\n\r\t")", R"("\u0008\u000c\n\u000d\t")");
        row("control characters", R"("\u0000\u001F")", R"("\u0000\u001f")");
        row("ASCII escapes", R"("\u0041\u007f")", "\"A\x7f\"");
        row("two bytes", R"("\u00e9")", "\"é\"");
        row("three bytes", R"("\u20AC")", "\"€\"");
        row("surrogate pair", R"("\ud83D\uDe00")", "\"😀\"");
        row("last code point", R"("\udbff\udfff")", "\"\xF4\x8F\xBF\xBF\"");
        row("noncharacter", R"("\ufffe")", "\"\xEF\xBF\xBE\"");
        row("line separator", R"("\u2028")", "\"\xE2\x80\xA8\"");
        row("UTF-8", "\"— é €😀\"", "\"— é €😀\"");
    }
    void textKeepsItsMeaning()
    {
        QFETCH(const QByteArray, read);
        QFETCH(const QByteArray, written);
        const auto document = JsonDocument::parse(read.toStdString());
        QVERIFY(document.has_value());
        const auto printed = JsonDocument::print(*document, noLimit);
        QCOMPARE(printed, written.toStdString() + "\n");
        QVERIFY(JsonDocument::parse(*printed) == document);
    }

    void keysAreSortedAndArraysAreNot()
    {
        const auto document
            = JsonDocument::parse("\t{\"b\" : [3, 1,2],\r\n\"\": null,\"a\":{},\"B\":[] , \"é\":true}\n ");
        QVERIFY(document.has_value());
        QCOMPARE(*JsonDocument::print(*document, noLimit),
            "{\n  \"\": null,\n  \"B\": [],\n  \"a\": {},\n  \"b\": [\n    3,\n    1,\n    2\n  ],\n  \"é\": "
            "true\n}\n");
    }

    void printingWhatWasPrintedChangesNothing()
    {
        const auto document = JsonDocument::parse(R"({"z":[{"y":[[],{}]},false],"a":{"b":{"c":"d"}}})");
        QVERIFY(document.has_value());
        const auto once = JsonDocument::print(*document, noLimit);
        QCOMPARE(JsonDocument::print(*JsonDocument::parse(*once), noLimit), once);
    }

    void whatIsNotStrictlyJsonIsRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        // clang-format off
        for (const char* bytes : {" ", "nul", "True", "undefined", "NaN", "Infinity", "-", "+1", "01", "-01", "1.", ".5",
                 "1e", "1e+", "0x10", "1 2", "[", "]", "[1", "[1,]", "[,1]", "[1 2]", "{", "}", "{\"a\"}", "{\"a\":}",
                 "{\"a\":1,}", "{,}", "{a:1}", "{'a':1}", "{1:2}", "\"", "\"a", "\"\\\"", "\"\\x41\"", "\"\\u12\"",
                 "\"\\u12g4\"", "\"\\U00e9\"", "'a'", "\"a\nb\"", "\"a\tb\"", "// comment\n{}", "{} // comment",
                 "/* */{}", "{}{}", "{}}", "[]x", "\v[]", "[1;2]", "{\"a\"=1}"})
            // clang-format on
            QTest::newRow(bytes) << QByteArray(bytes);
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("NUL behind the document") << QByteArray("{}\0", 3);
        QTest::newRow("NUL and more behind the document") << QByteArray("{}\0{}", 5);
        QTest::newRow("NUL within text") << QByteArray("\"a\0b\"", 5);
        QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF{}");
        QTest::newRow("UTF-16") << QByteArray("{\0}\0", 4);
        QTest::newRow("no-break space") << QByteArray("\u00A0{}");
    }
    void whatIsNotStrictlyJsonIsRefused()
    {
        QFETCH(const QByteArray, bytes);
        QVERIFY(!JsonDocument::parse(bytes.toStdString()));
    }

    void whatCouldNotBeWrittenBackAsItWasIsRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("the same key twice") << QByteArray(R"({"a":1,"b":2,"a":1})");
        QTest::newRow("the same key in two spellings") << QByteArray(R"([{"a":1,"\u0061":2}])");
        QTest::newRow("high surrogate alone") << QByteArray(R"("\ud800")");
        QTest::newRow("high surrogate before text") << QByteArray(R"("\ud800abcdefg")");
        QTest::newRow("two high surrogates") << QByteArray(R"("\ud800\ud800")");
        QTest::newRow("low surrogate alone") << QByteArray(R"("\udc00")");
        QTest::newRow("surrogates in the wrong order") << QByteArray(R"("\udc00\ud800")");
        QTest::newRow("surrogate in a key") << QByteArray(R"({"\udfff":1})");
        QTest::newRow("Latin-1") << QByteArray("\"\xE9\"");
        QTest::newRow("truncated UTF-8") << QByteArray("\"\xE2\x82\"");
        QTest::newRow("truncated UTF-8 at the end") << QByteArray("\"a\"\xE2");
        QTest::newRow("overlong UTF-8") << QByteArray("\"\xC0\x80\"");
        QTest::newRow("surrogate in UTF-8") << QByteArray("\"\xED\xA0\x80\"");
        QTest::newRow("beyond Unicode") << QByteArray("\"\xF4\x90\x80\x80\"");
    }
    void whatCouldNotBeWrittenBackAsItWasIsRefused()
    {
        QFETCH(const QByteArray, bytes);
        QVERIFY(!JsonDocument::parse(bytes.toStdString()));
    }

    void nestingIsAllowedUpToItsBound()
    {
        const auto deepest = JsonDocument::parse(nested(JsonDocument::maximumDepth));
        QVERIFY(deepest.has_value());
        QVERIFY(JsonDocument::parse(*JsonDocument::print(*deepest, noLimit)) == deepest);
        QVERIFY(!JsonDocument::parse(nested(JsonDocument::maximumDepth + 1)));
        QVERIFY(!JsonDocument::parse(std::string(1'000'000, '[')));
    }

    void siblingsDoNotAddToTheNesting()
    {
        std::string text = "[[]";
        for (int sibling = 0; sibling < 2 * JsonDocument::maximumDepth; ++sibling)
            text += ",[[]],{\"a\":{}}";
        QVERIFY(JsonDocument::parse(text + "]").has_value());
    }

    void printingStopsAtTheLimit()
    {
        const auto document = JsonDocument::parse("[1, 2]");
        const auto size = JsonDocument::print(*document, noLimit)->size();
        QVERIFY(JsonDocument::print(*document, size).has_value());
        QVERIFY(!JsonDocument::print(*document, size - 1));
    }

    void indentationCannotFillTheMemory()
    {
        std::string inner = "0";
        for (int element = 0; element < 500'000; ++element)
            inner += ",0";
        const auto document = JsonDocument::parse(std::string(500, '[') + inner + std::string(500, ']'));
        QVERIFY(document.has_value());
        // It would be half a gigabyte.
        QVERIFY(!JsonDocument::print(*document, 1'000'000));
    }
};

QTEST_GUILESS_MAIN(JsonDocumentTest)
#include "JsonDocumentTest.moc"
