// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "helper/Options.h"

#include "support/TestSupport.h"

using namespace Tarvik;
using namespace std::chrono_literals;

class OptionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void withoutArgumentsItServes()
    {
        const auto options = parseOptions({});
        QVERIFY(options.has_value());
        QVERIFY(options->job == Options::Job::serve);
        QCOMPARE(options->lapse, 75s);
        QCOMPARE(options->idle, 30s);
    }

    void bothPeriodsCanBeSet()
    {
        const auto options = parseOptions({"--lapse-seconds", "1", "--idle-seconds", "86400"});
        QVERIFY(options.has_value());
        QCOMPARE(options->lapse, 1s);
        QCOMPARE(options->idle, 86400s);
    }

    void helpAndVersionCanBeAskedFor()
    {
        QVERIFY(parseOptions({"--help"}).value().job == Options::Job::help);
        QVERIFY(parseOptions({"--version"}).value().job == Options::Job::version);
    }

    void anythingElseIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");

        const QString lapse = QStringLiteral("--lapse-seconds");
        QTest::newRow("unknown") << QStringList{QStringLiteral("--lapse")};
        QTest::newRow("operand") << QStringList{QStringLiteral("on")};
        QTest::newRow("empty") << QStringList{QString()};
        QTest::newRow("no value") << QStringList{lapse};
        for (const char* value : {"", "0", "-1", "1.5", "1s", " 1", "+1", "86401", "99999999999999999999"})
            QTest::addRow("value %s", value) << QStringList{lapse, QLatin1StringView(value)};
    }

    void anythingElseIsRefused()
    {
        QFETCH(QStringList, arguments);
        std::vector<std::string> list;
        for (const QString& argument : arguments)
            list.push_back(argument.toStdString());
        QVERIFY(!parseOptions(list).has_value());
    }
};

QTEST_APPLESS_MAIN(OptionsTest)
#include "OptionsTest.moc"
