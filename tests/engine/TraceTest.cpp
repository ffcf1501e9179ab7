// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/SteeredMachine.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

/// A machine that does what the lines of a trace say, and looks at what they say it should have done.
class TracedMachine {
public:
    void play(const QString& line)
    {
        const QString word = line.section(u' ', 0, 0);
        const QString value = line.section(u' ', 1);
        if (word == u"held"_s)
            QCOMPARE(held(), value);
        else if (word == u"journal"_s)
            m_expected.append(value);
        else
            QVERIFY(m_steering.play(line));
    }

    void compareJournal() const { QCOMPARE(m_machine.journalLines(), m_expected); }

private:
    QString held() const
    {
        QStringList words;
        if (m_machine.assertions.isSystemHeld())
            words.append(u"system"_s);
        if (m_machine.assertions.isDisplayHeld())
            words.append(u"display"_s);
        if (m_machine.coordinator->clamshellActive())
            words.append(u"override"_s);
        return words.isEmpty() ? u"nothing"_s : words.join(u' ');
    }

    CoordinatedMachine m_machine;
    SteeredMachine m_steering{m_machine};
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
