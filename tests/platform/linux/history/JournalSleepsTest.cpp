// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/history/JournalSleeps.h"

#include "support/TestSupport.h"

#include <QProcess>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray start = "6bbd95ee977941e497c48be27c254128";
const QByteArray stop = "8811e6df2a8e40f58a94cea26f8ebf14";

/// So many seconds after 1970.
TimePoint at(double seconds)
{
    return TimePoint(Seconds(seconds));
}

/// As journalctl prints it.
QByteArray entry(const QByteArray& message, int second, const QByteArray& more = {})
{
    const QByteArray time = QByteArray::number(second) + "000000";
    return "{\"__REALTIME_TIMESTAMP\":\"9999000000\",\"PRIORITY\":\"6\",\"MESSAGE_ID\":\"" + message
        + "\",\"_SOURCE_REALTIME_TIMESTAMP\":\"" + time + '"' + more + "}\n";
}

} // namespace

class JournalSleepsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void eachSleepHasABeginningAndAnEnd()
    {
        const QList<PastSleep> expected{{at(10), at(20)}, {at(30), at(40)}};
        QCOMPARE(JournalSleeps::in(entry(start, 10) + entry(stop, 20) + entry(start, 30) + entry(stop, 40)), expected);
        QCOMPARE(JournalSleeps::in({}), QList<PastSleep>());
    }

    void anEndThatNobodyToldIsNotKnown()
    {
        const QList<PastSleep> expected{{at(10), {}}, {at(30), at(40)}};
        QCOMPARE(JournalSleeps::in(entry(start, 10) + entry(start, 30) + entry(stop, 40)), expected);
    }

    void anEndWithoutABeginningIsNoSleep()
    {
        const QList<PastSleep> expected{{at(30), at(40)}};
        QCOMPARE(JournalSleeps::in(entry(stop, 20) + entry(start, 30) + entry(stop, 40) + entry(stop, 50)), expected);
    }

    void anAttemptThatHasFailedIsNoSleep()
    {
        QByteArray failed = entry(stop, 11);
        failed.replace("\"PRIORITY\":\"6\"", "\"PRIORITY\":\"3\"");
        QCOMPARE(JournalSleeps::in(entry(start, 10) + failed), QList<PastSleep>());
    }

    void aMessageWithoutATimeOfItsOwnHasThatOfItsArrival()
    {
        const QByteArray arrived
            = "{\"__REALTIME_TIMESTAMP\":\"12500000\",\"MESSAGE_ID\":\"" + start + "\",\"PRIORITY\":\"6\"}\n";
        QCOMPARE(JournalSleeps::in(arrived), (QList<PastSleep>{{at(12.5), {}}}));
    }

    void whatCannotBeReadIsPassedOver()
    {
        QCOMPARE(JournalSleeps::in("{\n[]\nnonsense\n{\"MESSAGE_ID\":3}\n{\"MESSAGE_ID\":\"" + start
                     + "\",\"__REALTIME_TIMESTAMP\":\"soon\"}\n" + entry(start, 10) + entry("a message", 15)),
            (QList<PastSleep>{{at(10), {}}}));
    }

    /// Whatever the journal of this machine holds.
    void theSystemsJournalctlTakesTheCommand()
    {
        QStringList words;
        for (const std::string& word : JournalSleeps::command("/usr/bin/journalctl", 20))
            words.append(QString::fromStdString(word));
        QProcess program;
        program.start(words.takeFirst(), words);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.readAllStandardError(), QByteArray());
        QCOMPARE(program.exitCode(), 0);
    }
};

QTEST_GUILESS_MAIN(JournalSleepsTest)
#include "JournalSleepsTest.moc"
