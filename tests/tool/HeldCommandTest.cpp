// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/HeldCommand.h"

#include "support/TestSupport.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <functional>

using namespace Tarvik;
using namespace std::chrono_literals;

class HeldCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_heard.clear();
        QFile::remove(m_end);
    }

    void theLeaseIsRenewedWhileTheCommandRuns()
    {
        QElapsedTimer elapsed;
        elapsed.start();
        qint64 thirdRenewal = 0;
        HeldCommand held({"sh", "-c", untilCreated(m_end)}, "why", 50ms, recorder([&] {
            if (m_heard.size() == 4)
                thirdRenewal = elapsed.elapsed();
            if (m_heard.size() == 5)
                create(m_end);
        }));
        QCOMPARE(held.run(), 0);
        QVERIFY(m_heard.size() >= 6);
        QVERIFY2(thirdRenewal <= 500, qPrintable(QString::number(thirdRenewal)));
        const auto renewals = static_cast<qint64>(m_heard.size()) - 2;
        QVERIFY2(elapsed.elapsed() >= 50 * renewals, qPrintable(QString::number(renewals)));
        for (std::size_t index = 0; index + 1 < m_heard.size(); ++index) {
            QCOMPARE(m_heard[index].action, std::string("acquire"));
            QCOMPARE(m_heard[index].session, held.session());
            QCOMPARE(m_heard[index].tool, std::string("sh"));
            QCOMPARE(m_heard[index].ttl, std::string("0.100"));
            QCOMPARE(m_heard[index].reason, std::string("why"));
        }
        QCOMPARE(m_heard.back().action, std::string("release"));
        QCOMPARE(m_heard.back().session, held.session());
    }

    void everyEndGivesTheLeaseBackAndItsStatusOn_data()
    {
        QTest::addColumn<QStringList>("command");
        QTest::addColumn<int>("status");

        const QString sh = QStringLiteral("sh");
        const QString c = QStringLiteral("-c");
        QTest::newRow("success") << QStringList{QStringLiteral("true")} << 0;
        QTest::newRow("failure") << QStringList{sh, c, QStringLiteral("exit 7")} << 7;
        QTest::newRow("killed") << QStringList{sh, c, QStringLiteral("kill -KILL $$")} << 137;
        QTest::newRow("terminated") << QStringList{sh, c, QStringLiteral("kill -TERM $$")} << 143;
        QTest::newRow("not found") << QStringList{QStringLiteral("/nonexistent/command")} << 127;
        QTest::newRow("not found in PATH") << QStringList{QStringLiteral("no-such-command-anywhere")} << 127;
        QTest::newRow("not executable") << QStringList{QStringLiteral("/etc/passwd")} << 126;
    }

    void everyEndGivesTheLeaseBackAndItsStatusOn()
    {
        QFETCH(QStringList, command);
        QFETCH(int, status);
        std::vector<std::string> words;
        for (const QString& word : command)
            words.push_back(word.toStdString());
        HeldCommand held(words, {}, 10s, recorder());
        QCOMPARE(held.run(), status);
        QCOMPARE(heardActions(), QStringLiteral("acquire release"));
    }

    void aStoppedCommandHasNoLease()
    {
        const std::string script
            = "echo $$ >" + m_pid.toStdString() + "; kill -STOP $$; " + untilCreated(m_end) + "; exit 3";
        HeldCommand held({"sh", "-c", script}, {}, 10s, recorder([this] {
            if (m_heard.size() == 2)
                ::kill(stoppedCommand(), SIGCONT);
            else if (m_heard.size() == 3)
                create(m_end);
        }));
        QCOMPARE(held.run(), 3);
        QCOMPARE(heardActions(), QStringLiteral("acquire release acquire release"));
    }

    void theCommandRunsWithoutABusToo()
    {
        HeldCommand held({"/bin/sh", "-c", "exit 4"}, {}, 10s, [](const Announcement&) { return false; });
        QCOMPARE(held.run(), 4);
    }

    void noTwoHoldsShareALease()
    {
        const HeldCommand one({"true"}, {}, 1s, recorder());
        const HeldCommand other({"true"}, {}, 1s, recorder());
        QVERIFY(one.session() != other.session());
        QVERIFY(one.session().starts_with("hold:" + std::to_string(QCoreApplication::applicationPid()) + "-"));
    }

private:
    QString heardActions() const
    {
        QStringList actions;
        for (const Announcement& announcement : m_heard)
            actions.append(QString::fromStdString(announcement.action));
        return actions.join(QLatin1Char(' '));
    }

    HeldCommand::Announce recorder(const std::function<void()>& then = [] {})
    {
        return [this, then](const Announcement& announcement) {
            m_heard.push_back(announcement);
            then();
            return true;
        };
    }

    static std::string untilCreated(const QString& file)
    {
        return "until [ -e " + file.toStdString() + " ]; do sleep 0.01; done";
    }

    static void create(const QString& file) { QVERIFY(QFile(file).open(QIODevice::WriteOnly)); }

    pid_t stoppedCommand() const
    {
        QFile file(m_pid);
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
    }

    QTemporaryDir m_directory;
    QString m_end = m_directory.filePath(QStringLiteral("end"));
    QString m_pid = m_directory.filePath(QStringLiteral("pid"));
    std::vector<Announcement> m_heard;
};

int main(int count, char** arguments)
{
    // The test library's own thread would take the signal in place of the command under test.
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGCHLD);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    QCoreApplication application(count, arguments);
    HeldCommandTest test;
    return QTest::qExec(&test, count, arguments);
}

#include "HeldCommandTest.moc"
