// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/StatusDescription.h"

#include "bus/ServedTarvik.h"
#include "support/Contracts.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTranslator>

using namespace Tarvik;
using namespace Qt::StringLiterals;

/// Into a script whose characters are wide; of one text.
class WideTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }

    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QLatin1String(context) == "StatusDescription"_L1 && QLatin1String(text) == "Heat"_L1 ? u"温度"_s
                                                                                                    : QString();
    }
};

/// The clock of the machine stands still, so its leases do not run out.
class StatusDescriptionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_tarvik.emplace();
    }

    void cleanup() { m_tarvik.reset(); }

    void peopleReadLines()
    {
        m_tarvik->machine.setPower(false, 62);
        lease(u"claude"_s, u"claude:1"_s, u"600"_s, {});
        lease(u"make"_s, u"k"_s, u"7260"_s, u"kernel"_s);
        m_tarvik->machine.run("codex\n");
        m_tarvik->tray.isHosted = false;
        const QString expected = u"Awake · 1 agent\n"
                                 u"  Now       Claude Code, make +1 more\n"
                                 u"            on battery 62%\n"
                                 u"  Active    Claude Code\n"
                                 u"            make\n"
                                 u"            Codex\n"
                                 u"  Leases    claude, 10 min left, claude:1\n"
                                 u"            make, 2 h 1 min left, k: kernel\n"
                                 u"  Holds     PreventUserIdleSystemSleep:  (fake)\n"
                                 u"  Power     battery, battery at 62 %\n"
                                 u"  Heat      normal\n"
                                 u"  Lock key  registered (fake)\n"
                                 u"  Tray      not shown: no panel offers a place\n"
                                 u"  Version   1.2.0"_s;
        QCOMPARE(text(), expected);
    }

    void whatHappensSeldomIsSaidThen()
    {
        qputenv("TZ", "UTC");
        tzset();
        m_tarvik->machine.coordinator->setTimedSession(10);
        m_tarvik->machine.lid.closed = true;
        m_tarvik->machine.power->readLid();
        m_tarvik->machine.setThermal(ThermalLevel::critical);
        QVERIFY(text().contains(u"\n  Session   until 22:23\n"_s));
        QVERIFY(text().contains(u"\n  Heat      very hot (too hot to be kept awake)\n"_s));
        QVERIFY(text().contains(u"\n  Power     external\n"_s));
    }

    void anUpgradeThatWaitsIsToldOf()
    {
        QCOMPARE(json()[u"upgradePending"], false);
        m_tarvik->installUpgrade();
        QCOMPARE(json()[u"upgradePending"], true);
        QVERIFY(
            text().endsWith(u"\n  Version   1.2.0\n            An update is installed. Tarvik restarts when the work "
                            "has ended and its windows are closed."_s));
    }

    void valuesStandBelowEachOtherWhereCharactersTakeTwoColumns()
    {
        WideTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QVERIFY2(text().contains(u"\n  Power     external\n  温度      normal\n"_s), qPrintable(text()));
    }

    void programsReadWhatTheContractNames()
    {
        m_tarvik->machine.setPower(false, 62);
        lease(u"claude"_s, u"claude:1"_s, u"600"_s, u"quote \" and \\ and é"_s);
        m_tarvik->machine.coordinator->setTimedSession(10);
        const QString interface = QString::fromLatin1(TarvikWire::statusInterface);
        QStringList keys{u"isRunning"_s};
        for (QString name : contractsOf(QString::fromLatin1(TarvikWire::busName))[interface].properties.keys()) {
            name[0] = name[0].toLower();
            keys.append(name == "active"_L1 ? u"activeAgents"_s : name);
        }
        keys.sort();
        const QJsonObject object = json();
        QCOMPARE(object.keys(), keys);
        QCOMPARE(object[u"isRunning"], true);
        QCOMPARE(object[u"activeAgents"], QJsonArray{u"Claude Code"_s});
        QCOMPARE(object[u"batteryPercent"], 62);
        QCOMPARE(object[u"sessionEnd"], 1'700'000'600);
        QCOMPARE(object[u"thermalState"], 0);
        const QJsonObject lease{{u"key"_s, u"claude:1"_s},
            {u"tool"_s, u"claude"_s},
            {u"reason"_s, u"quote \" and \\ and é"_s},
            {u"acquiredAt"_s, 1'700'000'000},
            {u"remainingSeconds"_s, 600}};
        QCOMPARE(object[u"leases"], QJsonArray{lease});
        const QJsonObject hold{{u"type"_s, u"PreventUserIdleSystemSleep"_s},
            {u"service"_s, u"fake"_s},
            {u"what"_s, QString()},
            {u"effective"_s, true}};
        QCOMPARE(object[u"assertions"], QJsonArray{hold});
    }

    void whatIsUnknownIsNullInJson()
    {
        QVERIFY(json()[u"batteryPercent"].isNull());
        QVERIFY(json()[u"sessionEnd"].isNull());
    }

    void theTerminalIsNotSteeredByTexts()
    {
        const QString nasty = u"\u009b2J\u202ex\ny\u001b[2J\u007f"_s;
        lease(u"make"_s, u"k"_s, u"600"_s, nasty);
        const StatusObject& status = *m_tarvik->status;
        QVERIFY(text().contains(u"k: ?2J?x?y?[2J?\n"_s));
        const QString line = StatusDescription::json(status);
        QVERIFY(line.contains(u"\"reason\":\"\\u009b2J\\u202ex\\ny\\u001b[2J\\u007f\""_s));
        QCOMPARE(json()[u"leases"][0][u"reason"], nasty);
    }

private:
    void lease(const QString& tool, const QString& key, const QString& ttl, const QString& reason)
    {
        QMap<QString, QString> payload{
            {u"action"_s, u"acquire"_s}, {u"tool"_s, tool}, {u"session"_s, key}, {u"ttl"_s, ttl}};
        if (!reason.isEmpty())
            payload[u"reason"_s] = reason;
        m_tarvik->machine.hook(payload);
    }

    QString text() const { return StatusDescription::text(*m_tarvik->status); }
    QJsonObject json() const
    {
        return QJsonDocument::fromJson(StatusDescription::json(*m_tarvik->status).toUtf8()).object();
    }

    std::optional<ServedTarvik> m_tarvik;
};

QTEST_GUILESS_MAIN(StatusDescriptionTest)
#include "StatusDescriptionTest.moc"
