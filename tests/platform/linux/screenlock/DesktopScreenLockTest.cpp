// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/screenlock/DesktopScreenLock.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLockers.h"
#include "support/TestSupport.h"

#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <csignal>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class DesktopScreenLockTest : public QObject {
    Q_OBJECT

    using Command = DesktopScreenLock::Command;

    static inline const auto logindPath = u"/org/freedesktop/login1/session/auto"_s;
    static inline const auto unreachable = u"no screen locker could be reached"_s;
    static inline const auto unconfirmed = u"no screen locker has confirmed that it is locked"_s;

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_log.clear();
        m_errors.clear();
        m_directory = std::make_unique<QTemporaryDir>();
        m_clock = std::make_unique<FakeClock>();
        m_logind = std::make_unique<FakeLocker>(m_system, u"org.freedesktop.login1"_s, logindPath, m_log);
        use({});
    }

    void cleanup()
    {
        m_lock.reset();
        m_logind.reset();
        for (const QString& name : {u"first"_s, u"second"_s})
            killLeftOver(name);
    }

    void nobodyThereIsAnErrorAtOnce()
    {
        lock();
        QVERIFY(m_errors.isEmpty());
        QTRY_COMPARE(m_errors, QStringList{unreachable});
        QCOMPARE(m_clock->pending(), 0U);
    }

    void withoutAnyBusItIsAnErrorToo()
    {
        m_lock = std::make_unique<DesktopScreenLock>(
            QDBusConnection(u"nowhere"_s), QDBusConnection(u"nowhere"_s), *m_clock, QList<Command>());
        lock();
        QTRY_COMPARE(m_errors, QStringList{unreachable});
    }

    void logindsLockIsEnoughWhenTheHintSaysSo()
    {
        m_logind->locksWhenAsked = true;
        QVERIFY(m_logind->appear());
        FakeLocker gnome(m_services, u"org.gnome.ScreenSaver"_s, u"/org/gnome/ScreenSaver"_s, m_log);
        QVERIFY(gnome.appear());
        lock();
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(m_log, QStringList{u"org.freedesktop.login1"_s + logindPath});
        QCOMPARE(m_clock->pending(), 0U);
    }

    void aScreenSaverMayConfirmWhatLogindWasAskedFor_data()
    {
        QTest::addColumn<QString>("service");
        QTest::addColumn<QString>("path");
        QTest::newRow("GNOME") << u"org.gnome.ScreenSaver"_s << u"/org/gnome/ScreenSaver"_s;
        QTest::newRow("KDE and others") << u"org.freedesktop.ScreenSaver"_s << u"/org/freedesktop/ScreenSaver"_s;
        QTest::newRow("XFCE") << u"org.xfce.ScreenSaver"_s << u"/org/xfce/ScreenSaver"_s;
        QTest::newRow("MATE") << u"org.mate.ScreenSaver"_s << u"/"_s;
        QTest::newRow("Cinnamon") << u"org.cinnamon.ScreenSaver"_s << u"/org/cinnamon/ScreenSaver"_s;
    }

    void aScreenSaverMayConfirmWhatLogindWasAskedFor()
    {
        QFETCH(QString, service);
        QFETCH(QString, path);
        QVERIFY(m_logind->appear());
        FakeLocker saver(m_services, service, path, m_log);
        QVERIFY(saver.appear());
        lock();
        QTRY_COMPARE(m_logind->lockRequests, 1);
        QTRY_VERIFY(saver.questions > 0);
        saver.isLocked = true;
        QTRY_VERIFY(advanceUntilAnswered());
        QCOMPARE(m_errors, QStringList{QString()});
        QCOMPARE(m_log.size(), 1);
    }

    void theHintMayComeLate()
    {
        QVERIFY(m_logind->appear());
        lock();
        QTRY_VERIFY(m_logind->questions > 0);
        awaitAnswers();
        m_clock->advance(Seconds(1.5));
        QTRY_VERIFY(m_logind->questions > 0);
        awaitAnswers();
        QVERIFY(m_errors.isEmpty());
        m_logind->isLocked = true;
        m_clock->advance(Seconds(0.3));
        QTRY_COMPARE(m_errors, QStringList{QString()});
    }

    void withoutAConfirmationTheDesktopIsAskedAfterTwoSeconds()
    {
        QVERIFY(m_logind->appear());
        FakeLocker gnome(m_services, u"org.gnome.ScreenSaver"_s, u"/org/gnome/ScreenSaver"_s, m_log);
        gnome.locksWhenAsked = true;
        QVERIFY(gnome.appear());
        lock();
        QTRY_VERIFY(m_logind->questions > 0);
        awaitAnswers();
        m_clock->advance(Seconds(1.9));
        QTRY_VERIFY(m_logind->questions > 0);
        QCOMPARE(gnome.lockRequests, 0);
        m_clock->advance(Seconds(0.1));
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(gnome.lockRequests, 1);
    }

    void aLogindThatDoesNotAnswerIsLeftAfterTwoSeconds()
    {
        m_logind->isSlow = true;
        QVERIFY(m_logind->appear());
        lock();
        QTest::qWait(0);
        m_clock->advance(Seconds(1.9));
        QVERIFY(m_errors.isEmpty());
        m_clock->advance(Seconds(0.1));
        QTRY_COMPARE(m_errors, QStringList{unreachable});
    }

    void everybodyIsAskedInTheirOrder()
    {
        const auto text = [](const char* latin1) { return QString::fromLatin1(latin1); };
        m_logind->refuses = true;
        QVERIFY(m_logind->appear());
        std::vector<std::unique_ptr<FakeLocker>> lockers;
        for (const auto& [service, path] : {std::pair("org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"),
                 std::pair("org.freedesktop.ScreenSaver", "/ScreenSaver"),
                 std::pair("org.xfce.SessionManager", "/org/xfce/SessionManager"),
                 std::pair("org.mate.ScreenSaver", "/"),
                 std::pair("org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver"),
                 std::pair("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver")}) {
            // One connection each: "/" is everybody's parent.
            const auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, text(path));
            auto& owner = lockers.emplace_back(
                std::make_unique<FakeLocker>(QByteArrayView(path) == "/org/freedesktop/ScreenSaver"
                        ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"/ScreenSaver"_s)
                        : bus,
                    text(service),
                    text(path),
                    m_log));
            owner->refuses = true;
            QVERIFY(owner->appear());
        }
        lock();
        QTRY_COMPARE(m_errors, QStringList{unreachable});
        QCOMPARE(m_log,
            (QStringList{u"org.freedesktop.login1/org/freedesktop/login1/session/auto"_s,
                u"org.gnome.ScreenSaver/org/gnome/ScreenSaver"_s,
                u"org.freedesktop.ScreenSaver/ScreenSaver"_s,
                u"org.xfce.SessionManager/org/xfce/SessionManager"_s,
                u"org.mate.ScreenSaver/"_s,
                u"org.cinnamon.ScreenSaver/org/cinnamon/ScreenSaver"_s,
                u"org.freedesktop.ScreenSaver/org/freedesktop/ScreenSaver"_s}));
    }

    void kdesAnswerIsTheConfirmation()
    {
        FakeLocker kde(m_services, u"org.freedesktop.ScreenSaver"_s, u"/ScreenSaver"_s, m_log);
        QVERIFY(kde.appear());
        lock();
        QTRY_COMPARE(m_errors, QStringList{QString()});
    }

    void xfceTellsInItsAnswer_data()
    {
        QTest::addColumn<QVariantList>("answer");
        QTest::addColumn<QString>("error");
        QTest::newRow("locked") << QVariantList{true} << QString();
        QTest::newRow("not locked") << QVariantList{false} << unconfirmed;
        QTest::newRow("nonsense") << QVariantList{u"true"_s} << unconfirmed;
    }

    void xfceTellsInItsAnswer()
    {
        QFETCH(QVariantList, answer);
        FakeLocker xfce(m_services, u"org.xfce.SessionManager"_s, u"/org/xfce/SessionManager"_s, m_log);
        xfce.lockAnswer = answer;
        QVERIFY(xfce.appear());
        lock();
        QTRY_COMPARE(xfce.lockRequests, 1);
        QTRY_VERIFY(advanceUntilAnswered());
        QTEST(m_errors.constFirst(), "error");
    }

    void nobodysConfirmationIsAnError()
    {
        QVERIFY(m_logind->appear());
        lock();
        QTRY_VERIFY(advanceUntilAnswered());
        QCOMPARE(m_errors, QStringList{unconfirmed});
    }

    void aSecondRequestWaitsForTheFirst()
    {
        QVERIFY(m_logind->appear());
        lock();
        lock();
        QTRY_VERIFY(m_logind->questions > 0);
        lock();
        m_logind->isLocked = true;
        QTRY_VERIFY(advanceUntilAnswered());
        QCOMPARE(m_errors, (QStringList{QString(), QString(), QString()}));
        QCOMPARE(m_logind->lockRequests, 1);
        lock();
        QTRY_COMPARE(m_errors.size(), 4);
        QCOMPARE(m_logind->lockRequests, 2);
    }

    void aReceiverMayAskAgain()
    {
        m_lock->lock([this](const QString&) { lock(); });
        QTRY_COMPARE(m_errors, QStringList{unreachable});
    }

    void aCommandLocksWhereNobodyElseDoes()
    {
        use({{.program = script(u"first"_s, "exit 0"), .arguments = {u"-f"_s}, .proof = Command::Proof::exit}});
        lock();
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(startedCommands(), QStringList{u"first -f"_s});
        QCOMPARE(m_clock->pending(), 0U);
    }

    void aCommandThatFailsOrIsNotThereIsFollowedByTheNext()
    {
        use({{.program = u"tarvik-no-such-locker"_s, .arguments = {}, .proof = Command::Proof::exit},
            {.program = script(u"first"_s, "exit 1"), .arguments = {}, .proof = Command::Proof::exit},
            {.program = script(u"second"_s, "exit 0"), .arguments = {}, .proof = Command::Proof::exit}});
        lock();
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(startedCommands(), (QStringList{u"first "_s, u"second "_s}));
    }

    void aLockerThatFindsTheScreenLockedConfirmsIt()
    {
        Command locker{.program = script(u"first"_s, "exit 2"), .arguments = {}, .proof = Command::Proof::exit};
        use({locker});
        lock();
        QTRY_COMPARE(m_errors, QStringList{unreachable});
        locker.lockedStatus = 2;
        use({locker});
        lock();
        QTRY_COMPARE(m_errors, (QStringList{unreachable, QString()}));
        QCOMPARE(startedCommands().size(), 2);
    }

    void aCommandWithoutProofIsFollowedByTheNextAfterTwoSeconds()
    {
        use({{.program = script(u"first"_s, "exit 0"), .arguments = {}, .proof = Command::Proof::none},
            {.program = script(u"second"_s, "exit 0"), .arguments = {}, .proof = Command::Proof::exit}});
        lock();
        QTRY_COMPARE(startedCommands().size(), 1);
        QVERIFY(m_errors.isEmpty());
        QTRY_VERIFY(m_clock->pending() > 0);
        m_clock->advance(Seconds(2));
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(startedCommands().size(), 2);
    }

    void aCommandThatHangsIsFollowedByTheNext()
    {
        use({{.program = script(u"first"_s, "sleep 600"), .arguments = {}, .proof = Command::Proof::exit},
            {.program = script(u"second"_s, "exit 1"), .arguments = {}, .proof = Command::Proof::exit}});
        lock();
        QTRY_COMPARE(startedCommands().size(), 1);
        m_clock->advance(Seconds(2));
        QTRY_COMPARE(m_errors, QStringList{unreachable});
    }

    void aLockerThatStaysHasLocked()
    {
        use({{.program = script(u"first"_s, "sleep 600"), .arguments = {}, .proof = Command::Proof::staying}});
        lock();
        QTRY_COMPARE(startedCommands().size(), 1);
        QVERIFY(m_errors.isEmpty());
        m_clock->advance(Seconds(2));
        QCOMPARE(m_errors, QStringList{QString()});
        // The screen stays locked without us.
        m_lock.reset();
        QVERIFY(isRunning(u"first"_s));
    }

    void aLockerThatShouldStayAndEndsHasFailed()
    {
        use({{.program = script(u"first"_s, "exit 0"), .arguments = {}, .proof = Command::Proof::staying}});
        lock();
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY(!m_errors.constFirst().isEmpty());
    }

    void aCommandThatHasEndedLeavesNoZombie()
    {
        use({{.program = script(u"first"_s, "exit 0"), .arguments = {}, .proof = Command::Proof::exit}});
        lock();
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY(!QFile::exists(u"/proc/%1"_s.arg(processId(u"first"_s))));
    }

private:
    void use(const QList<Command>& commands)
    {
        m_lock = std::make_unique<DesktopScreenLock>(m_client, m_client, *m_clock, commands);
    }

    void lock()
    {
        m_lock->lock([this](const QString& error) { m_errors.append(error); });
    }

    /// Nobody is asked again whose answer is still on its way. Afterwards logind's questions are counted anew.
    void awaitAnswers()
    {
        const QDBusPendingCallWatcher last(m_client.asyncCall(QDBusMessage::createMethodCall(
            u"org.freedesktop.login1"_s, logindPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s)));
        QSignalSpy answered(&last, &QDBusPendingCallWatcher::finished);
        QVERIFY(answered.wait(patience));
        m_logind->questions = 0;
    }

    /// Until all questions on their way have been asked, and then until they have been answered: a connection keeps the
    /// order of its messages.
    void letAnswersArrive()
    {
        for (const QDBusConnection& there : {m_system, m_services, m_system, m_services}) {
            const QDBusPendingCallWatcher ping(m_client.asyncCall(QDBusMessage::createMethodCall(
                there.baseService(), u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s)));
            QSignalSpy answered(&ping, &QDBusPendingCallWatcher::finished);
            QVERIFY(answered.wait(patience));
        }
    }

    /// Lets a fifth of a second pass where anything waits for it. Not the bus is to be slow, but who is behind it.
    bool advanceUntilAnswered()
    {
        letAnswersArrive();
        if (m_errors.isEmpty() && m_clock->pending() > 0)
            m_clock->advance(Seconds(0.2));
        return !m_errors.isEmpty();
    }

    QString file(const QString& name) const { return m_directory->filePath(name); }

    QString script(const QString& name, const QByteArray& body) const
    {
        QFile program(file(name));
        if (!program.open(QIODevice::WriteOnly))
            qFatal("the script cannot be written");
        program.write("#!/bin/sh\necho $$ >'" + file(name + u".pid"_s).toLocal8Bit() + "'\necho \"" + name.toLatin1()
            + " $*\" >>'" + file(u"started"_s).toLocal8Bit() + "'\n" + body + '\n');
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return program.fileName();
    }

    QStringList startedCommands() const
    {
        QFile log(file(u"started"_s));
        if (!log.open(QIODevice::ReadOnly))
            return {};
        return QString::fromLatin1(log.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }

    int processId(const QString& name) const
    {
        QFile pid(file(name + u".pid"_s));
        return pid.open(QIODevice::ReadOnly) ? pid.readAll().trimmed().toInt() : 0;
    }

    bool isRunning(const QString& name) const { return processId(name) > 0 && ::kill(processId(name), 0) == 0; }

    /// The whole session that the command was started in.
    void killLeftOver(const QString& name) const
    {
        if (isRunning(name))
            ::kill(-processId(name), SIGKILL);
    }

    QDBusConnection m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"client"_s);
    QDBusConnection m_system = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"system"_s);
    QDBusConnection m_services = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"services"_s);
    QStringList m_log;
    QStringList m_errors;
    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<FakeClock> m_clock;
    std::unique_ptr<FakeLocker> m_logind;
    std::unique_ptr<DesktopScreenLock> m_lock;
};

QTEST_GUILESS_MAIN(DesktopScreenLockTest)
#include "DesktopScreenLockTest.moc"
