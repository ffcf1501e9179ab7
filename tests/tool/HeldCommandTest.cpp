// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/HeldCommand.h"

#include "support/TestSupport.h"

#include <csignal>

using namespace Tarvik;
using namespace std::chrono_literals;

class HeldCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_heard.clear();
    }

    void theLeaseIsRenewedWhileTheCommandRuns()
    {
        HeldCommand held({"sleep", "0.5"}, "why", 50ms, recorder());
        QCOMPARE(held.run(), 0);
        QVERIFY2(m_heard.size() >= 5, qPrintable(QString::number(m_heard.size())));
        QVERIFY(m_heard.size() <= 12);
        for (std::size_t index = 0; index + 1 < m_heard.size(); ++index) {
            QCOMPARE(m_heard[index].action, std::string("acquire"));
            QCOMPARE(m_heard[index].session, held.session());
            QCOMPARE(m_heard[index].tool, std::string("sleep"));
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
        HeldCommand held(
            {"sh", "-c", "(sleep 0.2; kill -CONT $$) & kill -STOP $$; sleep 0.2; exit 3"}, {}, 10s, recorder());
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

    HeldCommand::Announce recorder()
    {
        return [this](const Announcement& announcement) {
            m_heard.push_back(announcement);
            return true;
        };
    }

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
