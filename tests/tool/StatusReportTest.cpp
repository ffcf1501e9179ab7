// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/StatusReport.h"

#include "support/TestSupport.h"
#include "tool/DBusWriter.h"
#include "tool/StatusFormat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <bit>

using namespace Tarvik;

static void writeReal(DBusWriter& writer, double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    writer.align(8);
    writer.uint32(static_cast<std::uint32_t>(bits));
    writer.uint32(static_cast<std::uint32_t>(bits >> 32));
}

static void writeKey(DBusWriter& writer, std::string_view name, std::string_view signature)
{
    writer.align(8);
    writer.string(name);
    writer.signature(signature);
}

static DBusMessage answer()
{
    DBusWriter writer;
    const auto entries = writer.beginArray(8);
    writeKey(writer, "Title", "s");
    writer.string("Awake");
    writeKey(writer, "FromTheFuture", "a(yav)");
    const auto future = writer.beginArray(8);
    writer.align(8);
    writer.byte(1);
    const auto variants = writer.beginArray(1);
    writer.signature("u");
    writer.uint32(5);
    writer.endArray(variants);
    writer.endArray(future);
    writeKey(writer, "IsAwake", "b");
    writer.uint32(1);
    writeKey(writer, "BatteryPercent", "i");
    writer.uint32(62);
    writeKey(writer, "Subtitle", "u");
    writer.uint32(7);
    writeKey(writer, "Active", "as");
    const auto agents = writer.beginArray(4);
    writer.string("Claude Code");
    writer.string("Codex");
    writer.endArray(agents);
    writeKey(writer, "Leases", "a(sssdd)");
    const auto leases = writer.beginArray(8);
    for (const auto* key : {"claude:1", "k"}) {
        writer.align(8);
        writer.string(key);
        writer.string("claude");
        writer.string("");
        writeReal(writer, 1.5e9);
        writeReal(writer, 899.5);
    }
    writer.endArray(leases);
    writeKey(writer, "Assertions", "a(sssb)");
    const auto assertions = writer.beginArray(8);
    writer.align(8);
    writer.string("PreventUserIdleSystemSleep");
    writer.string("logind");
    writer.string("idle");
    writer.uint32(1);
    writer.endArray(assertions);
    writer.endArray(entries);
    DBusMessage message;
    message.type = DBusMessageType::methodReturn;
    message.signature = "a{sv}";
    message.body = writer.bytes();
    return message;
}

static StatusReport sample()
{
    StatusReport report;
    report.title = "Awake";
    report.reason = "Awake · 1 agent";
    report.subtitle = "Claude Code";
    report.details = "on battery 62%";
    report.isAwake = true;
    report.activeAgents = {"Claude Code", "Codex"};
    report.leases = {{"claude:1", "claude", "", 1.5e9, 600}, {"k", "make", "kernel", 1.5e9, 7300}};
    report.assertions = {{"PreventUserIdleSystemSleep", "logind", "idle", false}};
    report.hasBattery = true;
    report.batteryPercent = 62;
    report.lockShortcut = "registered (X11)";
    report.isTrayShown = true;
    report.version = "1.2.3";
    return report;
}

class StatusReportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void knownPropertiesAreReadAndOthersPassedOver()
    {
        const auto report = readStatus(answer());
        QVERIFY(report);
        QCOMPARE(report->title, std::string("Awake"));
        QVERIFY(report->isAwake);
        QCOMPARE(report->batteryPercent, 62);
        QVERIFY(report->subtitle.empty());
        QVERIFY(report->activeAgents == (std::vector<std::string>{"Claude Code", "Codex"}));
        QCOMPARE(report->leases.size(), std::size_t(2));
        QVERIFY(report->leases[0] == (StatusReport::Lease{"claude:1", "claude", "", 1.5e9, 899.5}));
        QVERIFY(report->assertions
            == (std::vector<StatusReport::Assertion>{{"PreventUserIdleSystemSleep", "logind", "idle", true}}));
    }

    void anAnswerThatIsCutOffIsNone()
    {
        DBusMessage message = answer();
        const std::string whole = message.body;
        for (std::size_t size = 0; size < whole.size(); ++size) {
            message.body = whole.substr(0, size);
            QVERIFY(!readStatus(message));
        }
    }

    void anErrorIsNoStatus()
    {
        DBusMessage message = answer();
        message.type = DBusMessageType::error;
        QVERIFY(!readStatus(message));
        message.type = DBusMessageType::methodReturn;
        message.signature = "s";
        QVERIFY(!readStatus(message));
    }

    void theTextSaysEverythingInReadingOrder()
    {
        const QString expected = QStringLiteral("Awake · 1 agent\n"
                                                "  Now       Claude Code\n"
                                                "            on battery 62%\n"
                                                "  Active    Claude Code\n"
                                                "            Codex\n"
                                                "  Leases    claude, 10 min left, claude:1\n"
                                                "            make, 2 h 1 min left, k: kernel\n"
                                                "  Holds     PreventUserIdleSystemSleep: idle (logind), not confirmed\n"
                                                "  Power     battery, battery at 62 %\n"
                                                "  Heat      normal\n"
                                                "  Lock key  registered (X11)\n"
                                                "  Tray      shown\n"
                                                "  Version   1.2.3\n");
        QCOMPARE(QString::fromStdString(statusText(sample())), expected);
    }

    void theTerminalIsNotSteeredByTexts()
    {
        StatusReport report = sample();
        report.leases[0].reason = "\x1b[2Jx\ny";
        const QString text = QString::fromStdString(statusText(report));
        QVERIFY(!text.contains(QChar(0x1b)));
        QVERIFY(text.contains(QStringLiteral("claude:1: ?[2Jx?y\n")));
        report.leases[0].tool = "\u009b2J\u202etool";
        QVERIFY(QString::fromStdString(statusText(report)).contains(QStringLiteral("  ?2J?tool, ")));
        QVERIFY(statusJson(report).find(R"("tool":"\u009b2J\u202etool")") != std::string::npos);
    }

    void aTimedSessionIsShownWithItsEnd()
    {
        StatusReport report = sample();
        qputenv("TZ", "UTC");
        tzset();
        report.sessionEnd = 1.5e9;
        QVERIFY(QString::fromStdString(statusText(report)).contains(QStringLiteral("  Session   until 02:40\n")));
    }

    void jsonCarriesEveryField()
    {
        StatusReport report = sample();
        report.sessionEnd = 1.5e9;
        report.subtitle = "quote \" and \\ and é";
        const QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(statusJson(report))).object();
        const QStringList keys{QStringLiteral("activeAgents"),
            QStringLiteral("assertions"),
            QStringLiteral("batteryPercent"),
            QStringLiteral("details"),
            QStringLiteral("hasBattery"),
            QStringLiteral("isAwake"),
            QStringLiteral("isHot"),
            QStringLiteral("isPaused"),
            QStringLiteral("isRunning"),
            QStringLiteral("leases"),
            QStringLiteral("lidClosed"),
            QStringLiteral("lockShortcut"),
            QStringLiteral("onAC"),
            QStringLiteral("reason"),
            QStringLiteral("sessionEnd"),
            QStringLiteral("subtitle"),
            QStringLiteral("thermalState"),
            QStringLiteral("title"),
            QStringLiteral("trayShown"),
            QStringLiteral("version")};
        QCOMPARE(object.keys(), keys);
        QCOMPARE(object[QStringLiteral("isRunning")].toBool(), true);
        QCOMPARE(object[QStringLiteral("subtitle")].toString(), QStringLiteral("quote \" and \\ and é"));
        QCOMPARE(object[QStringLiteral("sessionEnd")].toDouble(), 1.5e9);
        QCOMPARE(object[QStringLiteral("leases")].toArray()[1].toObject()[QStringLiteral("reason")].toString(),
            QStringLiteral("kernel"));
    }

    void whatIsUnknownIsNullInJson()
    {
        StatusReport report = sample();
        report.batteryPercent = -1;
        report.leases[0].remainingSeconds = std::numeric_limits<double>::infinity();
        const QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(statusJson(report))).object();
        QVERIFY(object[QStringLiteral("batteryPercent")].isNull());
        QVERIFY(object[QStringLiteral("sessionEnd")].isNull());
        QVERIFY(object[QStringLiteral("leases")].toArray()[0].toObject()[QStringLiteral("remainingSeconds")].isNull());
    }

    void aTarvikThatDoesNotRunIsSaidInJsonToo()
    {
        QCOMPARE(QString::fromStdString(statusJson({})), QStringLiteral("{\"isRunning\":false}"));
    }
};

QTEST_GUILESS_MAIN(StatusReportTest)
#include "StatusReportTest.moc"
