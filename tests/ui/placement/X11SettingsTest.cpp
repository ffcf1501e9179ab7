// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11Settings.h"

#include "support/TestSupport.h"

using namespace Tarvik;

namespace {

/// Two texts, a colour and two integers, in the order of the processor, which is that of most.
QByteArray settings(const char* theme = "Adwai")
{
    QByteArray data = QByteArray("\0\0\0\0\1\0\0\0\4\0\0\0", 12);
    data += QByteArray("\1\0\x0d\0Net/ThemeName\0\0\0\0\0\0\0", 24);
    data += static_cast<char>(qstrlen(theme));
    data += QByteArray("\0\0\0", 3) + theme;
    data.append((4 - data.size() % 4) % 4, '\0');
    data += QByteArray("\2\0\4\0Tint\0\0\0\0\1\2\3\4\5\6\7\x8", 20);
    data += QByteArray("\0\0\x17\0Gdk/WindowScalingFactor\0\0\0\0\0\2\0\0\0", 36);
    data += QByteArray("\0\0\4\0Last\0\0\0\0\xff\xff\xff\xff", 16);
    return data;
}

} // namespace

class X11SettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void integersAreFoundAmongOtherSettings()
    {
        QCOMPARE(X11Settings::integer(settings(), "Gdk/WindowScalingFactor"), 2);
        QCOMPARE(X11Settings::integer(settings(), "Last"), -1);
        QCOMPARE(X11Settings::integer(settings(), "Net/ThemeName"), std::nullopt);
        QCOMPARE(X11Settings::integer(settings(), "Tint"), std::nullopt);
        QCOMPARE(X11Settings::integer(settings(), "Absent"), std::nullopt);
    }

    void textsAreFoundAmongOtherSettings()
    {
        QCOMPARE(X11Settings::text(settings(), "Net/ThemeName"), QByteArray("Adwai"));
        QCOMPARE(X11Settings::text(settings(), "Last"), std::nullopt);
        QCOMPARE(X11Settings::text(settings(), "Absent"), std::nullopt);
    }

    void theOtherByteOrderIsReadToo()
    {
        const QByteArray data("\1\0\0\0\0\0\0\1\0\0\0\1\0\0\0\4Last\0\0\0\0\0\0\1\2", 28);
        QCOMPARE(X11Settings::integer(data, "Last"), 258);
    }

    void settingsThatEndTooSoonAreNone()
    {
        const QByteArray whole = settings();
        for (qsizetype length = 0; length < whole.size(); ++length)
            QCOMPARE(X11Settings::integer(whole.first(length), "Last"), std::nullopt);
        for (qsizetype length = 0; length < 45; ++length)
            QCOMPARE(X11Settings::text(whole.first(length), "Net/ThemeName"), std::nullopt);
    }

    void nonsenseIsNone()
    {
        QCOMPARE(X11Settings::integer(QByteArray(64, '\xff'), "Last"), std::nullopt);
        QCOMPARE(X11Settings::integer(QByteArray(64, '\0'), "Last"), std::nullopt);
        QCOMPARE(X11Settings::text(QByteArray(64, '\xff'), "Last"), std::nullopt);
    }

    void aDarkThemeIsToldByItsName()
    {
        QVERIFY(X11Settings::isThemeDark(settings("Adwaita-dark")));
        QVERIFY(X11Settings::isThemeDark(settings("Arc-Dark")));
        QVERIFY(X11Settings::isThemeDark(settings("Breeze:dark")));
        QVERIFY(!X11Settings::isThemeDark(settings("Greybird")));
        QVERIFY(!X11Settings::isThemeDark(settings("")));
        QVERIFY(!X11Settings::isThemeDark({}));
    }

    void withoutADisplayThereAreNone() { QVERIFY(X11Settings::read(":4711").isEmpty()); }
};

QTEST_GUILESS_MAIN(X11SettingsTest)
#include "X11SettingsTest.moc"
