// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopEntry.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DesktopEntryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void onlyTheMainGroupCounts()
    {
        const auto keys = DesktopEntry::parse("Early=1\n"
                                              "# Comment=1\n"
                                              "[Desktop Entry]\r\n"
                                              " Name = A = B \r\n"
                                              "no line of the format\n"
                                              "=value without a key\n"
                                              "Twice=first\n"
                                              "Twice=second\n"
                                              "#Name=C\n"
                                              "Name[de]=D\n"
                                              "[Desktop Action x]\n"
                                              "Exec=other\n");
        const QMap<QString, QString> expected{
            {u"Name"_s, u"A = B"_s}, {u"Name[de]"_s, u"D"_s}, {u"Twice"_s, u"second"_s}};
        QCOMPARE(keys, expected);
    }

    void bytesThatAreNoEntryHaveNoKeys()
    {
        QVERIFY(DesktopEntry::parse({}).isEmpty());
        QVERIFY(DesktopEntry::parse("\xff\xfe\0[Desktop Entry").isEmpty());
    }

    void stringsSurviveTheFile_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("value");
        QTest::newRow("plain") << u"/usr/bin/tarvik"_s << u"/usr/bin/tarvik"_s;
        QTest::newRow("backslash") << u"a\\nb"_s << u"a\\\\nb"_s;
        QTest::newRow("control characters") << u"a\nb\tc\rd"_s << u"a\\nb\\tc\\rd"_s;
        QTest::newRow("blanks at the ends") << u" a b "_s << u"\\sa b\\s"_s;
        QTest::newRow("one blank") << u" "_s << u"\\s"_s;
        QTest::newRow("empty") << QString() << QString();
    }

    void stringsSurviveTheFile()
    {
        QFETCH(QString, text);
        QFETCH(QString, value);
        QCOMPARE(DesktopEntry::encoded(text), value);
        QCOMPARE(DesktopEntry::decoded(value), text);
    }

    void anUnknownEscapeIsLeftAlone() { QCOMPARE(DesktopEntry::decoded(u"a\\qb\\"_s), u"a\\qb\\"_s); }

    void argumentsAreQuotedWhereTheyMustBe_data()
    {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<QString>("value");
        QTest::newRow("plain") << QStringList{u"/opt/tarvik"_s, u"--autostart"_s} << u"/opt/tarvik --autostart"_s;
        QTest::newRow("blank") << QStringList{u"/opt/my apps/tarvik"_s} << u"\"/opt/my apps/tarvik\""_s;
        QTest::newRow("empty") << QStringList{u"a"_s, QString()} << u"a \"\""_s;
        QTest::newRow("percent") << QStringList{u"/opt/100%/x"_s, u"%u y"_s} << u"/opt/100%%/x \"%%u y\""_s;
        QTest::newRow("quote") << QStringList{u"a\"b"_s} << u"\"a\\\\\"b\""_s;
        QTest::newRow("dollar") << QStringList{u"$HOME"_s} << u"\"\\\\$HOME\""_s;
        QTest::newRow("backquote") << QStringList{u"`id`"_s} << u"\"\\\\`id\\\\`\""_s;
        QTest::newRow("backslash") << QStringList{u"a\\b"_s} << u"\"a\\\\\\\\b\""_s;
        QTest::newRow("line break") << QStringList{u"a\nb"_s} << u"\"a\\nb\""_s;
        QTest::newRow("not ASCII") << QStringList{u"/home/zoë/tarvik"_s} << u"/home/zoë/tarvik"_s;
    }

    void argumentsAreQuotedWhereTheyMustBe()
    {
        QFETCH(QStringList, command);
        QTEST(DesktopEntry::execValue(command), "value");
    }
};

QTEST_APPLESS_MAIN(DesktopEntryTest)
#include "DesktopEntryTest.moc"
