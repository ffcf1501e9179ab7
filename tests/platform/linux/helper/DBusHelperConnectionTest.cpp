// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/helper/DBusHelperConnection.h"

#include "dbus/BusDaemon.h"
#include "fakes/FakeHelper.h"
#include "platform/HelperWire.h"
#include "support/PrivateBus.h"
#include "support/TestSupport.h"

#include <csignal>
#include <memory>
#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

const auto label = u"com.morvanta.Tarvik.helper"_s;
const auto otherVersion = u"The background helper belongs to another version of Tarvik."_s;

} // namespace

class DBusHelperConnectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_outcomes.clear();
        m_bus.emplace();
        QVERIFY(m_bus->isReady());
        m_helper = std::make_unique<FakeHelper>(m_bus->connect(u"first"_s), label);
        m_other = std::make_unique<FakeHelper>(m_bus->connect(u"second"_s), label);
        m_connection = std::make_unique<DBusHelperConnection>(m_bus->connect(u"client"_s), label);
        m_connection->onInterrupted = [this] { m_outcomes.append(u"interrupted"_s); };
        m_connection->onInvalidated = [this] { m_outcomes.append(u"invalidated"_s); };
    }

    void cleanup()
    {
        m_connection.reset();
        m_helper.reset();
        m_other.reset();
        m_bus.reset();
    }

    void theReplyIsPassedOn_data()
    {
        QTest::addColumn<bool>("isOk");
        QTest::addColumn<QString>("error");
        QTest::newRow("done") << true << QString();
        QTest::newRow("refused") << false << u"Sleep could not be switched off: no"_s;
        QTest::newRow("refused without a word") << false << QString();
    }

    void theReplyIsPassedOn()
    {
        QFETCH(bool, isOk);
        QFETCH(QString, error);
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value({isOk, error})};
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{isOk ? u"ok "_s : u"not ok "_s + error});
        QCOMPARE(m_helper->calls, QStringList{u"on"_s});
    }

    void anyVersionIsAnAnswer()
    {
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value({QString()}), FakeHelper::value({u"1.2 of old"_s})};
        askForVersion();
        QTRY_COMPARE(m_outcomes, QStringList{u"version "_s});
        askForVersion();
        QTRY_COMPARE(m_outcomes.constLast(), u"version 1.2 of old"_s);
    }

    void anErrorIsASentence_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("sentence");
        const auto notAllowed = u"This session is not allowed to switch sleep off."_s;
        const auto silent = u"The background helper isn’t responding."_s;
        const auto row = [](const QString& name, const QString& sentence) {
            QTest::newRow(qPrintable(name.section(u'.', -1))) << name << sentence;
        };
        row(u"org.freedesktop.DBus.Error.AccessDenied"_s, notAllowed);
        row(u"org.freedesktop.DBus.Error.AuthFailed"_s, notAllowed);
        row(u"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired"_s, notAllowed);
        row(u"org.freedesktop.DBus.Error.ServiceUnknown"_s, u"The background helper is not installed."_s);
        row(u"org.freedesktop.DBus.Error.NameHasNoOwner"_s, u"The background helper is not installed."_s);
        row(u"org.freedesktop.DBus.Error.NoReply"_s, silent);
        row(u"org.freedesktop.DBus.Error.Timeout"_s, silent);
        row(u"org.freedesktop.DBus.Error.TimedOut"_s, silent);
        row(u"org.freedesktop.DBus.Error.UnknownMethod"_s, otherVersion);
        row(u"org.freedesktop.DBus.Error.UnknownInterface"_s, otherVersion);
        row(u"org.freedesktop.DBus.Error.InvalidArgs"_s, otherVersion);
        row(u"org.freedesktop.systemd1.UnitMasked"_s,
            u"The administrator of this computer has blocked the background helper."_s);
        row(u"org.freedesktop.DBus.Error.Spawn.ChildExited"_s,
            u"The background helper does not work: It is not to be"_s);
        row(u"com.example.Error"_s, u"The background helper does not work: It is not to be"_s);
    }

    void anErrorIsASentence()
    {
        QFETCH(QString, name);
        QFETCH(QString, sentence);
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::error(name)};
        switchTo(true);
        askForVersion();
        QTRY_COMPARE(m_outcomes, QStringList(2, u"failed "_s + sentence));
    }

    void aReplyOfOtherTypesIsOfAnotherVersion_data()
    {
        QTest::addColumn<QVariantList>("values");
        QTest::newRow("nothing") << QVariantList();
        QTest::newRow("bool alone") << QVariantList{true};
        QTest::newRow("number") << QVariantList{1, QString()};
        QTest::newRow("text") << QVariantList{u"true"_s, QString()};
        QTest::newRow("more") << QVariantList{true, QString(), QString()};
    }

    void aReplyOfOtherTypesIsOfAnotherVersion()
    {
        QFETCH(QVariantList, values);
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value(values)};
        switchTo(true);
        askForVersion();
        QTRY_COMPARE(m_outcomes, QStringList(2, u"failed "_s + otherVersion));
    }

    void withoutAHelperItIsNotInstalled()
    {
        switchTo(true);
        switchTo(false);
        QTRY_COMPARE(m_outcomes, QStringList(2, u"failed The background helper is not installed."_s));
    }

    void aHelperThatDoesNotStartIsTold()
    {
        QVERIFY(m_bus->addService(label, u"/bin/false"_s));
        switchTo(true);
        QTRY_COMPARE(m_outcomes.size(), 1);
        QVERIFY2(m_outcomes.constFirst().startsWith(u"failed The background helper does not work: "_s),
            qPrintable(m_outcomes.constFirst()));
    }

    void aHeartbeatStartsNoHelper()
    {
        // Whatever the bus is starting the helper for would reach it as soon as it is there.
        QVERIFY(m_bus->addService(label, u"/bin/sleep 20"_s));
        m_helper->answers = {FakeHelper::value({u"4"_s})};
        m_connection->heartbeat();
        QDBusConnection(u"client"_s).call(BusDaemon::call(u"GetId"_s, {}));
        QVERIFY(m_helper->appear());
        askForVersion();
        QTRY_COMPARE(m_outcomes, QStringList{u"version 4"_s});
        QCOMPARE(m_helper->calls, QStringList{u"version"_s});
        m_connection->heartbeat();
        QTRY_COMPARE(m_helper->calls, (QStringList{u"version"_s, u"heartbeat"_s}));
    }

    void aHelperThatJustEndedIsAskedOnceMore()
    {
        QVERIFY(m_helper->appear());
        m_helper->answers = {
            FakeHelper::value({false, QString::fromLatin1(HelperWire::endingError)}), FakeHelper::value({true, u""_s})};
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        QCOMPARE(m_helper->calls, (QStringList{u"on"_s, u"on"_s}));
    }

    void aHelperThatEndsAllTheTimeIsTold()
    {
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value({false, QString::fromLatin1(HelperWire::endingError)})};
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"not ok "_s + QString::fromLatin1(HelperWire::endingError)});
        QCOMPARE(m_helper->calls, (QStringList{u"on"_s, u"on"_s}));
    }

    void theNextHelperIsAskedWhenOneLeavesWithoutAnAnswer()
    {
        QVERIFY(m_helper->appear());
        m_other->answers = {FakeHelper::value({true, QString()})};
        switchTo(true);
        QTRY_COMPARE(m_helper->unanswered.size(), 1);
        QVERIFY(m_bus->addService(label, u"/bin/false"_s));
        m_helper->leave();
        QVERIFY(m_other->appear());
        m_helper->answerLate(FakeHelper::error(u"org.freedesktop.DBus.Error.NoReply"_s));
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        QCOMPARE(m_other->calls, QStringList{u"on"_s});
    }

    void aYesOfAHelperThatHasLeftIsAskedForAgain()
    {
        QVERIFY(m_helper->appear());
        m_other->answers = {FakeHelper::value({true, QString()})};
        switchTo(true);
        QTRY_COMPARE(m_helper->unanswered.size(), 1);
        m_helper->leave();
        QVERIFY(m_other->appear());
        m_helper->answerLate(FakeHelper::value({true, QString()}));
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        QCOMPARE(m_other->calls, QStringList{u"on"_s});
    }

    void whoLeavesWithTheOverrideInterrupts()
    {
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value({true, QString()})};
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        m_helper->leave();
        QTRY_COMPARE(m_outcomes, (QStringList{u"ok "_s, u"interrupted"_s}));
        // Only the one that held it.
        QVERIFY(m_other->appear());
        m_other->answers = {FakeHelper::value({u"2"_s})};
        askForVersion();
        m_other->leave();
        QVERIFY(m_other->appear());
        askForVersion();
        QTRY_COMPARE(m_outcomes.size(), 4);
        QCOMPARE(m_outcomes.count(u"interrupted"_s), 1);
    }

    void whoLeavesWithoutTheOverrideDoesNot()
    {
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value({true, QString()})};
        switchTo(true);
        switchTo(false);
        QTRY_COMPARE(m_outcomes, QStringList(2, u"ok "_s));
        m_helper->answers = {FakeHelper::value({false, QString()})};
        switchTo(true);
        QTRY_COMPARE(m_outcomes.size(), 3);
        m_helper->leave();
        askForVersion();
        QTRY_COMPARE(m_outcomes.size(), 4);
        QVERIFY(!m_outcomes.contains(u"interrupted"_s));
    }

    void aBusThatIsGoneIsOfNoUse()
    {
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value({true, QString()}), FakeHelper::Answer()};
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        m_helper->answers.clear();
        askForVersion();
        QTRY_COMPARE(m_helper->calls.size(), 2);
        m_bus->stop();
        QTRY_COMPARE(m_outcomes.size(), 4);
        QVERIFY(m_outcomes.indexOf(u"interrupted"_s) < m_outcomes.indexOf(u"invalidated"_s));
        QVERIFY2(m_outcomes.filter(u"failed"_s).size() == 1, qPrintable(m_outcomes.join(u", "_s)));
        switchTo(true);
        QTRY_COMPARE(m_outcomes.constLast(), u"failed There is no connection to the system bus."_s);
    }

    void aBusThatWasNeverThereIsOfNoUse()
    {
        m_connection = std::make_unique<DBusHelperConnection>(QDBusConnection(u"nowhere"_s), label);
        switchTo(true);
        m_connection->heartbeat();
        QCOMPARE(m_outcomes, QStringList());
        QTRY_COMPARE(m_outcomes, QStringList{u"failed There is no connection to the system bus."_s});
    }

    void whoeverHearsOfItMayDestroyTheConnection_data()
    {
        QTest::addColumn<bool>("isReply");
        QTest::newRow("reply") << true;
        QTest::newRow("error") << false;
    }

    void whoeverHearsOfItMayDestroyTheConnection()
    {
        QFETCH(bool, isReply);
        QVERIFY(m_helper->appear());
        m_helper->answers = {isReply ? FakeHelper::value({true, QString()}) : FakeHelper::error(u"a.b"_s)};
        int ends = 0;
        const auto end = [&] {
            ++ends;
            m_connection.reset();
        };
        m_connection->setKeepAwake(
            true, [&](bool, const QString&) { end(); }, [&](const QString&) { end(); });
        QTRY_COMPARE(ends, 1);
    }

    void whoeverIsInterruptedMayDestroyTheConnection()
    {
        QVERIFY(m_helper->appear());
        m_helper->answers = {FakeHelper::value({true, QString()})};
        switchTo(true);
        QTRY_COMPARE(m_outcomes, QStringList{u"ok "_s});
        m_connection->onInterrupted = [this] { m_connection.reset(); };
        m_helper->leave();
        QTRY_VERIFY(!m_connection);
    }

    void aConnectionThatIsDestroyedCallsNobody()
    {
        QVERIFY(m_helper->appear());
        switchTo(true);
        QTRY_COMPARE(m_helper->unanswered.size(), 1);
        m_connection.reset();
        m_helper->answerLate(FakeHelper::value({true, QString()}));
        m_connection = std::make_unique<DBusHelperConnection>(m_bus->connect(u"client"_s), label);
        m_helper->answers = {FakeHelper::value({u"3"_s})};
        askForVersion();
        QTRY_COMPARE(m_outcomes, QStringList{u"version 3"_s});
    }

private:
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

    std::optional<PrivateBus> m_bus;
    std::unique_ptr<FakeHelper> m_helper;
    std::unique_ptr<FakeHelper> m_other;
    std::unique_ptr<DBusHelperConnection> m_connection;
    QStringList m_outcomes;
};

QTEST_GUILESS_MAIN(DBusHelperConnectionTest)
#include "DBusHelperConnectionTest.moc"
