// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Runs against the built helper, logind and polkit, in a virtual desktop whose processes and files this test may
// change.
#include "platform/linux/helper/DBusHelperConnection.h"
#include "platform/linux/helper/SystemdHelperService.h"
#include "support/OrdinaryUser.h"
#include "support/TestSupport.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QFile>
#include <QProcess>
#include <QTimer>
#include <QVersionNumber>

#include <csignal>
#include <memory>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto label = u"com.morvanta.Tarvik.helper"_s;
const auto activation = u"/usr/share/dbus-1/system-services/com.morvanta.Tarvik.helper.service"_s;

} // namespace

class RealHelperTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(qEnvironmentVariableIsSet("TARVIK_DESKTOP"), "Run this inside scripts/desktop: it kills the helper.");
        QVERIFY(m_observer.isConnected());
        QFile file(activation);
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_activation = file.readAll();
    }

    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_outcomes.clear();
        endHelper(SIGKILL);
        QTRY_VERIFY(!isLocked());
        m_service = std::make_unique<SystemdHelperService>(
            QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"subject"_s),
            label,
            SystemdHelperService::Places());
        connectToHelper();
    }

    void cleanup()
    {
        QVERIFY(writeActivation(m_activation));
        m_connection.reset();
        m_service.reset();
        QDBusConnection::disconnectFromBus(u"subject"_s);
        QDBusConnection::disconnectFromBus(u"ordinary"_s);
    }

    void itSwitchesSleepOffAndOnAgain()
    {
        QTRY_COMPARE(m_service->status(), HelperStatus::enabled);
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        QVERIFY(isLocked());
        switchTo(false);
        QTRY_COMPARE(m_outcomes, QStringList(2, u"ok "_s));
        QTRY_VERIFY(!isLocked());
        askForVersion();
        QTRY_COMPARE(m_outcomes.size(), 3);
        QCOMPARE(m_outcomes.constLast().section(u' ', 0, 0), u"version"_s);
        QCOMPARE(QVersionNumber::fromString(m_outcomes.constLast().section(u' ', 1)).segmentCount(), 3);
    }

    void aHelperThatIsKilledInterruptsAndTheNextOneServes()
    {
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        endHelper(SIGKILL);
        QTRY_COMPARE(m_outcomes, (QStringList{u"ok "_s, u"interrupted"_s}));
        QTRY_VERIFY(!isLocked());
        switchTo(true);
        QTRY_COMPARE(m_outcomes.size(), 3);
        QCOMPARE(m_outcomes.constLast(), u"ok "_s);
        QVERIFY(isLocked());
    }

    void aHelperThatHangsIsGivenUp()
    {
        askForVersion();
        QTRY_COMPARE(m_outcomes.size(), 1);
        QCOMPARE(kill(helperProcess(), SIGSTOP), 0);
        switchTo(true);
        QTRY_COMPARE(m_outcomes.size(), 2);
        QCOMPARE(m_outcomes.constLast(), u"failed The background helper isn’t responding."_s);
    }

    void aHelperThatIsKilledBeforeItAnswersIsFollowedByAnother()
    {
        askForVersion();
        QTRY_COMPARE(m_outcomes.size(), 1);
        const pid_t former = helperProcess();
        QCOMPARE(kill(former, SIGSTOP), 0);
        switchTo(true);
        // The bus has the call.
        QVERIFY(QDBusConnection(u"subject"_s).interface()->isServiceRegistered(label));
        QCOMPARE(kill(former, SIGKILL), 0);
        QTRY_COMPARE(m_outcomes.size(), 2);
        QCOMPARE(m_outcomes.constLast(), u"ok "_s);
        QVERIFY(isLocked());
        QVERIFY(helperProcess() != former);
    }

    void aHelperThatIsRemovedWhileItRunsServesToItsEnd()
    {
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        QTRY_COMPARE(m_service->status(), HelperStatus::enabled);
        QVERIFY(QFile::remove(activation));
        QVERIFY(reloadBus());
        m_service->refresh();
        QTRY_COMPARE(m_service->status(), HelperStatus::notFound);
        QVERIFY(isLocked());
        endHelper(SIGTERM);
        QTRY_COMPARE(m_outcomes, (QStringList{u"ok "_s, u"interrupted"_s}));
        switchTo(true);
        QTRY_COMPARE(m_outcomes.size(), 3);
        QCOMPARE(m_outcomes.constLast(), u"failed The background helper is not installed."_s);
    }

    void aHelperThatCannotStartIsTold()
    {
        QByteArray broken = m_activation;
        broken.replace("Exec=/usr/bin/env ", "Exec=/bin/false ");
        QVERIFY(broken != m_activation && writeActivation(broken));
        switchTo(true);
        QTRY_COMPARE(m_outcomes.size(), 1);
        QVERIFY2(m_outcomes.constFirst().startsWith(u"failed The background helper does not work: "_s),
            qPrintable(m_outcomes.constFirst()));
    }

    void whomPolkitDoesNotKnowNeedsApprovalAndIsRefused()
    {
        {
            const OrdinaryUser user;
            QVERIFY(user.isSet());
            const auto bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"ordinary"_s);
            QVERIFY(bus.isConnected());
            m_service = std::make_unique<SystemdHelperService>(bus, label, SystemdHelperService::Places());
        }
        connectToHelper();
        QTRY_COMPARE(m_service->status(), HelperStatus::requiresApproval);
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"failed This session is not allowed to switch sleep off."_s});
        QVERIFY(!isLocked());
        switchTo(false);
        QTRY_COMPARE(m_outcomes.constLast(), u"ok "_s);
    }

    void heartbeatsKeepTheOverrideAndOnlyThey()
    {
        QProcess helper;
        helper.setProcessEnvironment([] {
            QProcessEnvironment environment;
            environment.insert(u"TARVIK_MACH_LABEL"_s, label);
            return environment;
        }());
        helper.start(QStringLiteral(TARVIK_HELPER), {u"--lapse-seconds"_s, u"2"_s});
        QVERIFY(helper.waitForStarted());
        QTRY_VERIFY(m_observer.interface()->isServiceRegistered(label));
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        int beats = 0;
        QTimer heart;
        connect(&heart, &QTimer::timeout, this, [&] {
            ++beats;
            m_connection->heartbeat();
        });
        heart.start(250ms);
        QTRY_VERIFY(beats >= 20);
        QVERIFY(isLocked());
        heart.stop();
        QTRY_VERIFY(!isLocked());
        helper.kill();
        helper.waitForFinished();
    }

private:
    void connectToHelper()
    {
        m_connection = m_service->connect();
        m_connection->onInterrupted = [this] { m_outcomes.append(u"interrupted"_s); };
    }

    void switchTo(bool enabled)
    {
        m_connection->setKeepAwake(
            enabled,
            [this](bool ok, const QString& error) { m_outcomes.append((ok ? u"ok "_s : u"not ok "_s) + error); },
            [this](const QString& error) { m_outcomes.append(u"failed "_s + error); });
    }

    void askForVersion()
    {
        m_connection->version([this](const QString& version) { m_outcomes.append(u"version "_s + version); },
            [this](const QString& error) { m_outcomes.append(u"failed "_s + error); });
    }

    pid_t helperProcess()
    {
        const QDBusReply<uint> process = m_observer.interface()->servicePid(label);
        return process.isValid() ? static_cast<pid_t>(process.value()) : 0;
    }

    void endHelper(int number)
    {
        if (const pid_t process = helperProcess(); process > 0)
            kill(process, number);
    }

    bool isLocked()
    {
        auto question = QDBusMessage::createMethodCall(
            u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
        question << u"org.freedesktop.login1.Manager"_s << u"BlockInhibited"_s;
        const QDBusReply<QVariant> what = m_observer.call(question);
        return what.value().toString().split(u':').contains(u"sleep"_s);
    }

    bool reloadBus()
    {
        const auto name = u"org.freedesktop.DBus"_s;
        const auto call = QDBusMessage::createMethodCall(name, u"/org/freedesktop/DBus"_s, name, u"ReloadConfig"_s);
        return m_observer.call(call).type() == QDBusMessage::ReplyMessage;
    }

    bool writeActivation(const QByteArray& text)
    {
        QFile file(activation);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() && reloadBus();
    }

    QByteArray m_activation;
    QDBusConnection m_observer = QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"observer"_s);
    std::unique_ptr<SystemdHelperService> m_service;
    std::unique_ptr<HelperConnection> m_connection;
    QStringList m_outcomes;
};

QTEST_GUILESS_MAIN(RealHelperTest)
#include "RealHelperTest.moc"
