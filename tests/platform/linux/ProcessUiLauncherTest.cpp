// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/ProcessUiLauncher.h"

#include "support/TestSupport.h"

#include <QFile>
#include <QTemporaryDir>

#include <csignal>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class ProcessUiLauncherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_ends.clear();
        m_directory = std::make_unique<QTemporaryDir>();
    }

    void aGoodEndIsReportedWithoutFailure()
    {
        launch("exit 0");
        QTRY_COMPARE(m_ends, QStringList{QString()});
    }

    void aCrashIsReportedWithItsSignal()
    {
        launch("kill -SEGV $$");
        QTRY_COMPARE(m_ends, QStringList{u"it crashed with signal 11"_s});
    }

    void aFailureIsReportedWithItsStatus()
    {
        launch("exit 3");
        QTRY_COMPARE(m_ends, QStringList{u"it ended with status 3"_s});
    }

    void whatCannotBeStartedIsReportedWithItsPath()
    {
        ProcessUiLauncher launcher(path(u"absent"_s));
        QVERIFY(!launcher.isInstalled());
        const Subscription listening
            = launcher.ended.subscribe([this](const QString& failure) { m_ends.append(failure); });
        launcher.launch();
        QTRY_COMPARE(m_ends.size(), 1);
        QVERIFY2(m_ends[0].startsWith(path(u"absent"_s)), qPrintable(m_ends[0]));
        launcher.launch();
        QTRY_COMPARE(m_ends.size(), 2);
    }

    void aRunningProcessIsNotStartedTwice()
    {
        launch("echo started >> $0.log; exec sleep 60");
        QVERIFY(m_launcher->isInstalled());
        QTRY_COMPARE(starts(), 1);
        m_launcher->launch();
        QCOMPARE(starts(), 1);
        m_launcher.reset();
    }

    void anEndedProcessIsStartedAgain()
    {
        launch("echo started >> $0.log");
        QTRY_COMPARE(m_ends.size(), 1);
        m_launcher->launch();
        QTRY_COMPARE(m_ends.size(), 2);
        QCOMPARE(starts(), 2);
    }

    void aProcessThatHangsCanBeKilled()
    {
        launch("trap '' TERM; echo started >> $0.log; kill -STOP $$");
        QTRY_COMPARE(starts(), 1);
        m_launcher->kill();
        QTRY_COMPARE(m_ends, QStringList{u"it crashed with signal 9"_s});
    }

    void aSignalThatIsBlockedHereEndsTheProcess()
    {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGTERM);
        sigset_t former;
        sigprocmask(SIG_BLOCK, &signals, &former);
        launch("echo $$ >> $0.log; exec sleep 60");
        sigprocmask(SIG_SETMASK, &former, nullptr);
        QTRY_COMPARE(starts(), 1);
        QCOMPARE(::kill(process(), SIGTERM), 0);
        QTRY_COMPARE(m_ends, QStringList{u"it crashed with signal 15"_s});
    }

    void theProcessEndsWithItsLauncher_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("when asked") << QByteArray("echo $$ >> $0.log; exec sleep 60");
        QTest::newRow("when it will not listen") << QByteArray("trap '' TERM; echo $$ >> $0.log; while :; do :; done");
    }

    void theProcessEndsWithItsLauncher()
    {
        QFETCH(QByteArray, script);
        launch(script);
        QTRY_COMPARE(starts(), 1);
        const pid_t id = process();
        QVERIFY(id > 0);
        QCOMPARE(::kill(id, 0), 0);
        m_launcher.reset();
        QVERIFY(::kill(id, 0) != 0);
        QVERIFY(m_ends.isEmpty());
    }

private:
    QString path(const QString& name) const { return m_directory->filePath(name); }

    void launch(const QByteArray& script)
    {
        QFile file(path(u"ui"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script + '\n');
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        file.close();
        m_launcher = std::make_unique<ProcessUiLauncher>(file.fileName());
        m_listening = m_launcher->ended.subscribe([this](const QString& failure) { m_ends.append(failure); });
        m_launcher->launch();
    }

    qsizetype starts() const
    {
        QFile log(path(u"ui.log"_s));
        return log.open(QIODevice::ReadOnly) ? log.readAll().count('\n') : 0;
    }

    /// What the process has written about itself; 0 when it has not.
    pid_t process() const
    {
        QFile log(path(u"ui.log"_s));
        return log.open(QIODevice::ReadOnly) ? log.readAll().trimmed().toInt() : 0;
    }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<ProcessUiLauncher> m_launcher;
    QStringList m_ends;
    Subscription m_listening;
};

QTEST_GUILESS_MAIN(ProcessUiLauncherTest)
#include "ProcessUiLauncherTest.moc"
