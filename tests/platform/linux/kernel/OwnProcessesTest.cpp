// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/OwnProcesses.h"

#include "support/StandInPrograms.h"
#include "support/TestSupport.h"

#include <QProcess>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class OwnProcessesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aProcessIsCalledAsTheFileThatItRuns()
    {
        StandInPrograms programs;
        programs.link(u"a-daemon-with-a-long-name"_s, u"/bin/cat"_s);
        QProcess daemon;
        daemon.start(programs.path() + u"/a-daemon-with-a-long-name"_s);
        QVERIFY(daemon.waitForStarted());
        const qint64 process = daemon.processId();
        QTRY_COMPARE(OwnProcesses::name(process), u"a-daemon-with-a"_s);
        QVERIFY(OwnProcesses::names().contains(u"a-daemon-with-a"_s));
        daemon.closeWriteChannel();
        QVERIFY(daemon.waitForFinished());
        QCOMPARE(OwnProcesses::name(process), QString());
        QVERIFY(!OwnProcesses::names().contains(u"a-daemon-with-a"_s));
    }

    void thereIsNoProcessZero() { QCOMPARE(OwnProcesses::name(0), QString()); }
};

QTEST_GUILESS_MAIN(OwnProcessesTest)
#include "OwnProcessesTest.moc"
