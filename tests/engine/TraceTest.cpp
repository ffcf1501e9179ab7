// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "CoordinatedMachine.h"

#include "support/TestSupport.h"

#include <QDir>
#include <QFile>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

/// A machine that does what the lines of a trace say.
class TracedMachine {
public:
    void play(const QString& line)
    {
        const QString word = line.section(u' ', 0, 0);
        const QString value = line.section(u' ', 1);
        if (word == u"set"_s)
            setSetting(value.section(u' ', 0, 0), value.section(u' ', 1));
        else if (word == u"mains"_s)
            setPower(oneOf(value, {u"off"_s, u"on"_s}) == 1, m_percent);
        else if (word == u"battery"_s)
            setPower(m_isOnAC, value == u"none"_s ? std::nullopt : std::optional(number(value)));
        else if (word == u"heat"_s)
            m.setHeat(static_cast<ThermalLevel>(oneOf(value, {u"nominal"_s, u"fair"_s, u"serious"_s, u"critical"_s})));
        else if (word == u"lid"_s)
            m.lid.closed = oneOf(value, {u"open"_s, u"closed"_s}) == 1;
        else if (word == u"helper"_s)
            setHelper(static_cast<HelperStatus>(oneOf(value, {u"missing"_s, u"installed"_s, u"unapproved"_s})));
        else if (word == u"work"_s)
            setWork(oneOf(value, {u"off"_s, u"on"_s}) == 1);
        else if (word == u"start"_s)
            m.start();
        else if (word == u"wait"_s)
            m.clock.advance(Seconds{number(value)});
        else if (word == u"held"_s)
            QCOMPARE(held(), value);
        else if (word == u"journal"_s)
            m_expected.append(value);
        else
            QFAIL(qPrintable(u"unknown line: "_s + line));
        while (m.helper.living > 0 && m.helper.connection->waiting() > 0)
            m.helper.connection->reply(true);
    }

    void compareJournal() const { QCOMPARE(m.journalLines(), m_expected); }

private:
    static int number(const QString& text)
    {
        bool isNumber = false;
        const int result = text.toInt(&isNumber);
        if (!isNumber)
            qFatal("not a number: %s", qPrintable(text));
        return result;
    }

    static int oneOf(const QString& word, const QStringList& words)
    {
        const auto index = static_cast<int>(words.indexOf(word));
        if (index < 0)
            qFatal("unknown word: %s", qPrintable(word));
        return index;
    }

    void setSetting(const QString& key, const QString& text)
    {
        const bool isFlag = text == u"true"_s || text == u"false"_s;
        const QVariant value = isFlag ? QVariant(text == u"true"_s) : QVariant(qint64{number(text)});
        if (m.settings) {
            QVERIFY(m.settings->setProperty(key.toLatin1().constData(), value));
            CoordinatedMachine::settle();
        } else {
            m.store.values[key] = value;
        }
    }

    void setPower(bool isOnAC, std::optional<int> percent)
    {
        m_isOnAC = isOnAC;
        m_percent = percent;
        m.setPower(isOnAC, percent);
        CoordinatedMachine::settle();
    }

    /// Of a machine with a lid.
    void setHelper(HelperStatus status)
    {
        m.lid.setPresent(true);
        m.helper.setStatus(status);
        CoordinatedMachine::settle();
    }

    void setWork(bool isWorking)
    {
        const QByteArray processes = isWorking ? "claude\n" : "";
        if (m.process)
            m.run(processes);
        else
            m.processTable.output = processes;
    }

    QString held() const
    {
        QStringList words;
        if (m.assertions.isSystemHeld())
            words.append(u"system"_s);
        if (m.assertions.isDisplayHeld())
            words.append(u"display"_s);
        if (m.coordinator->clamshellActive())
            words.append(u"override"_s);
        return words.isEmpty() ? u"nothing"_s : words.join(u' ');
    }

    CoordinatedMachine m;
    bool m_isOnAC = true;
    std::optional<int> m_percent;
    QStringList m_expected;
};

} // namespace

class TraceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theJournalTellsWhatTheMachineWentThrough_data()
    {
        QTest::addColumn<QString>("path");
        const QDir traces(QStringLiteral(TARVIK_TRACES));
        const QStringList names = traces.entryList({u"*.txt"_s});
        QVERIFY(!names.isEmpty());
        for (const QString& name : names)
            QTest::newRow(qPrintable(name)) << traces.filePath(name);
    }

    void theJournalTellsWhatTheMachineWentThrough()
    {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        TracedMachine machine;
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        for (const QString& line : lines) {
            if (!line.startsWith(u'#'))
                machine.play(line);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(u"at: "_s + line));
        }
        machine.compareJournal();
    }
};

QTEST_GUILESS_MAIN(TraceTest)
#include "TraceTest.moc"
