// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/helper/SystemdHelperService.h"

#include "fakes/FakeBusObject.h"
#include "fakes/FakeHelper.h"
#include "support/PrivateBus.h"
#include "support/TestSupport.h"

#include <QDBusArgument>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;
using enum HelperStatus;

namespace {

const auto label = u"com.morvanta.Tarvik.helper"_s;

FakeBusObject::Answer unitState(const QString& state)
{
    return [state](const QDBusMessage& call) { return call.createReply(state); };
}

FakeBusObject::Answer authorization(bool isAllowed, bool isChallenge)
{
    return [isAllowed, isChallenge](const QDBusMessage& call) {
        QDBusArgument result;
        result.beginStructure();
        result << isAllowed << isChallenge;
        result.beginMap(QMetaType::fromType<QString>(), QMetaType::fromType<QString>());
        result.endMap();
        result.endStructure();
        return call.createReply(QVariant::fromValue(result));
    };
}

FakeBusObject::Answer error()
{
    return [](const QDBusMessage& call) { return call.createErrorReply(u"com.example.Error"_s, u"no"_s); };
}

} // namespace

class SystemdHelperServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_statuses.clear();
        m_errors.clear();
        m_directory.emplace();
        m_places = {.installer = m_directory->filePath(u"install-helper"_s),
            .installedFile = m_directory->filePath(u"installed"_s)};
        qputenv("PATH", m_directory->path().toLocal8Bit() + ":" + m_path);
        m_bus.emplace();
        QVERIFY(m_bus->isReady());
        m_systemd = std::make_unique<FakeBusObject>(
            m_bus->connect(u"systemd"_s), u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1"_s);
        m_polkit = std::make_unique<FakeBusObject>(
            m_bus->connect(u"polkit"_s), u"org.freedesktop.PolicyKit1"_s, u"/org/freedesktop/PolicyKit1/Authority"_s);
        m_systemd->answers = {{u"Subscribe"_s, [](const auto& call) { return call.createReply(); }},
            {u"GetUnitFileState"_s, unitState(u"static"_s)}};
        m_polkit->answers = {{u"CheckAuthorization"_s, authorization(true, false)}};
        QVERIFY(m_systemd->appear());
        QVERIFY(m_polkit->appear());
    }

    void cleanup()
    {
        m_service.reset();
        m_systemd.reset();
        m_polkit.reset();
        m_bus.reset();
        m_directory.reset();
        qputenv("PATH", m_path);
    }

    void nothingIsKnownBeforeTheBusHasAnswered()
    {
        makeService();
        QCOMPARE(m_service->status(), std::nullopt);
        QTRY_COMPARE(m_service->status(), notFound);
        QCOMPARE(m_statuses, QList<HelperStatus>{notFound});
    }

    void whatIsNotInstalledCanBeInstalledWhenTheBundleBringsIt()
    {
        QVERIFY(writeScript(m_places.installer, u"exit 0"_s));
        makeService();
        QTRY_COMPARE(m_service->status(), notRegistered);
        QVERIFY(m_polkit->calls.isEmpty());
    }

    void whatTheBusCanStartIsEnabled()
    {
        QVERIFY(addHelper());
        makeService();
        QTRY_COMPARE(m_service->status(), enabled);
        QCOMPARE(m_statuses, QList<HelperStatus>{enabled});
    }

    void polkitIsAskedAboutThisProcessWithoutAskingTheUser()
    {
        QVERIFY(addHelper());
        makeService();
        QTRY_COMPARE(m_service->status(), enabled);
        QVERIFY(!m_polkit->calls.isEmpty());
        const QDBusMessage question = m_polkit->calls.constFirst();
        QCOMPARE(question.signature(), u"(sa{sv})sa{ss}us"_s);
        QCOMPARE(question.arguments().at(1), QVariant(u"com.morvanta.Tarvik.helper.set-keep-awake"_s));
        QCOMPARE(question.arguments().at(3), QVariant(0U));
        QString kind;
        QVariantMap details;
        const auto subject = question.arguments().at(0).value<QDBusArgument>();
        subject.beginStructure();
        subject >> kind >> details;
        subject.endStructure();
        QCOMPARE(kind, u"system-bus-name"_s);
        QCOMPARE(details, (QVariantMap{{u"name"_s, QDBusConnection(u"client"_s).baseService()}}));
    }

    void whatAnAdministratorHasToAllowNeedsApproval_data()
    {
        QTest::addColumn<QString>("state");
        QTest::addColumn<bool>("isAllowed");
        QTest::addColumn<bool>("isChallenge");
        QTest::addColumn<HelperStatus>("status");
        QTest::newRow("masked") << u"masked"_s << true << false << requiresApproval;
        QTest::newRow("masked until the next boot") << u"masked-runtime"_s << true << false << requiresApproval;
        QTest::newRow("refused") << u"static"_s << false << false << requiresApproval;
        QTest::newRow("after a password each time") << u"static"_s << false << true << requiresApproval;
        QTest::newRow("allowed") << u"static"_s << true << false << enabled;
        QTest::newRow("of another state") << u"linked"_s << true << false << enabled;
    }

    void whatAnAdministratorHasToAllowNeedsApproval()
    {
        QFETCH(QString, state);
        QFETCH(bool, isAllowed);
        QFETCH(bool, isChallenge);
        QFETCH(HelperStatus, status);
        QVERIFY(addHelper());
        m_systemd->answers[u"GetUnitFileState"_s] = unitState(state);
        m_polkit->answers[u"CheckAuthorization"_s] = authorization(isAllowed, isChallenge);
        makeService();
        QTRY_COMPARE(m_service->status(), status);
        QCOMPARE(m_statuses, QList<HelperStatus>{status});
    }

    void whoDoesNotTellHasNothingAgainstIt_data()
    {
        QTest::addColumn<FakeBusObject::Answer>("answer");
        QTest::newRow("error") << error();
        QTest::newRow("number") << FakeBusObject::Answer([](const auto& call) { return call.createReply(7); });
        QTest::newRow("nothing") << FakeBusObject::Answer([](const auto& call) { return call.createReply(); });
        QTest::newRow("silence") << FakeBusObject::Answer();
    }

    void whoDoesNotTellHasNothingAgainstIt()
    {
        QFETCH(FakeBusObject::Answer, answer);
        QVERIFY(addHelper());
        m_systemd->answers[u"GetUnitFileState"_s] = answer;
        m_polkit->answers[u"CheckAuthorization"_s] = answer;
        makeService();
        QTRY_COMPARE(m_service->status(), enabled);
    }

    void withoutSystemdAndPolkitItIsEnabled()
    {
        QVERIFY(addHelper());
        m_systemd->vanish();
        m_polkit->vanish();
        makeService();
        QTRY_COMPARE(m_service->status(), enabled);
    }

    void changesAreFollowed()
    {
        makeService();
        QTRY_COMPARE(m_service->status(), notFound);
        QVERIFY(addHelper());
        m_service->refresh();
        QTRY_COMPARE(m_service->status(), enabled);
        QTRY_COMPARE(callsOf(*m_systemd, u"Subscribe"_s), 1);
        m_systemd->answers[u"GetUnitFileState"_s] = unitState(u"masked"_s);
        m_systemd->announce(u"org.freedesktop.systemd1.Manager"_s, u"UnitFilesChanged"_s);
        QTRY_COMPARE(m_service->status(), requiresApproval);
        m_systemd->answers[u"GetUnitFileState"_s] = unitState(u"static"_s);
        m_systemd->announce(u"org.freedesktop.systemd1.Manager"_s, u"Reloading"_s);
        QTRY_COMPARE(m_service->status(), enabled);
        m_polkit->answers[u"CheckAuthorization"_s] = authorization(false, false);
        m_polkit->announce(u"org.freedesktop.PolicyKit1.Authority"_s, u"Changed"_s);
        QTRY_COMPARE(m_service->status(), requiresApproval);
        m_polkit->vanish();
        QTRY_COMPARE(m_service->status(), enabled);
        QVERIFY(m_polkit->appear());
        QTRY_COMPARE(m_service->status(), requiresApproval);
        QVERIFY(m_bus->removeService(label));
        m_service->refresh();
        QTRY_COMPARE(m_service->status(), notFound);
        QCOMPARE(m_statuses.size(), 8);
    }

    void theBusTellsWhatItCanStart()
    {
        makeService();
        QTRY_COMPARE(m_service->status(), notFound);
        QVERIFY(addHelper());
        // Only newer ones do so by themselves.
        const auto signal = QDBusMessage::createSignal(
            u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"ActivatableServicesChanged"_s);
        m_bus->connect(u"systemd"_s).send(signal);
        QTRY_COMPARE(m_service->status(), enabled);
    }

    void aBusThatIsLostHasNoHelper()
    {
        QVERIFY(addHelper());
        makeService();
        QTRY_COMPARE(m_service->status(), enabled);
        QVERIFY(m_service->connect());
        expectLog(QtWarningMsg, u"the system bus does not say whether there is a background helper: .*"_s);
        m_bus->stop();
        QTRY_COMPARE(m_service->status(), notFound);
        m_service->refresh();
        QCOMPARE(m_statuses, (QList<HelperStatus>{enabled, notFound}));
        QVERIFY(!m_service->connect());
    }

    void withoutABusThereIsNoHelperAndItIsLoggedOnce()
    {
        expectLog(QtWarningMsg, u"the system bus does not say whether there is a background helper: .*"_s);
        makeService(QDBusConnection(u"nowhere"_s));
        QTRY_COMPARE(m_service->status(), notFound);
        bool isDone = false;
        m_service->unregisterService([&](const QString&) { isDone = true; });
        QTRY_VERIFY(isDone);
        QVERIFY(!m_service->connect());
    }

    void registeringRunsTheInstallerAsAnAdministrator()
    {
        const QString trace = m_directory->filePath(u"trace"_s);
        QVERIFY(writeScript(m_places.installer, u"exit 0"_s));
        QVERIFY(writePkexec(u"echo \"$@\" >'%1'; env | grep -E '^(SHELL|HOME)=' >>'%1'; exit 0"_s.arg(trace)));
        makeService();
        QTRY_COMPARE(m_service->status(), notRegistered);
        QVERIFY(addHelper());
        registerService();
        QCOMPARE(m_errors, QStringList());
        QTRY_COMPARE(m_errors, QStringList{QString()});
        QCOMPARE(m_service->status(), enabled);
        QFile file(trace);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("--disable-internal-agent " + m_places.installer.toUtf8() + '\n'));
    }

    void whyTheInstallerFailedIsTold_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("error");
        QTest::newRow("dismissed")
            << u"echo 'Error executing command as another user: Request dismissed' >&2; exit 126"_s
            << u"No administrator’s password was given."_s;
        QTest::newRow("refused")
            << u"printf 'Error executing command as another user: Not authorized\\n\\nThis incident "
               "has been reported.\\n' >&2; exit 127"_s
            << u"Only an administrator of this computer may do this."_s;
        QTest::newRow("no agent")
            << u"echo 'Error executing command as another user: No authentication agent found.' >&2; exit 127"_s
            << u"Nothing in this session can ask for an administrator’s password: no polkit agent is running."_s;
        QTest::newRow("not executable") << u"printf 'Error executing it: Permission denied\\nmore\\n' >&2; exit 127"_s
                                        << u"Error executing it: Permission denied"_s;
        QTest::newRow("script") << u"echo copying; echo 'install-helper: /usr is read-only' >&2; exit 1"_s
                                << u"install-helper: /usr is read-only"_s;
        QTest::newRow("silent") << u"exit 3"_s << u"It ended before it was done."_s;
        QTest::newRow("killed") << u"kill -9 $$"_s << u"It ended before it was done."_s;
    }

    void whyTheInstallerFailedIsTold()
    {
        QFETCH(QString, script);
        QFETCH(QString, error);
        QVERIFY(writeScript(m_places.installer, u"exit 0"_s));
        QVERIFY(writePkexec(script));
        makeService();
        registerService();
        QTRY_COMPARE(m_errors, QStringList{error});
        QCOMPARE(m_service->status(), notRegistered);
    }

    void withoutPkexecThatIsTold()
    {
        qputenv("PATH", m_directory->path().toLocal8Bit());
        QVERIFY(writeScript(m_places.installer, u"exit 0"_s));
        makeService();
        registerService();
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY2(m_errors.constFirst().startsWith(u"There is no pkexec"_s), qPrintable(m_errors.constFirst()));
        QVERIFY(m_errors.constFirst().contains(m_places.installer));
    }

    void whoRegistersTwiceIsAskedOnce()
    {
        const QString trace = m_directory->filePath(u"trace"_s);
        QVERIFY(writeScript(m_places.installer, u"exit 0"_s));
        QVERIFY(writePkexec(u"echo asked >>'%1'"_s.arg(trace)));
        makeService();
        registerService();
        registerService();
        QTRY_COMPARE(m_errors, (QStringList{QString(), QString()}));
        QFile file(trace);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("asked\n"));
    }

    void registeringAgainAsksOnceAndUnregisteringDoesNot()
    {
        const QString trace = m_directory->filePath(u"trace"_s);
        QVERIFY(writeScript(m_places.installer, u"exit 0"_s));
        QVERIFY(writeScript(m_places.installedFile, QString()));
        QVERIFY(writePkexec(u"echo asked >>'%1'"_s.arg(trace)));
        QVERIFY(addHelper());
        makeService();
        QTRY_COMPARE(m_service->status(), enabled);
        m_service->unregisterService([this](const QString& error) { m_errors.append(error); });
        QTRY_COMPARE(m_errors.size(), 1);
        QVERIFY(!QFile::exists(trace));
        registerService();
        QTRY_COMPARE(m_errors, (QStringList{QString(), QString()}));
        QVERIFY(QFile::exists(trace));
    }

    void aPackagesHelperIsOnlyStarted()
    {
        QVERIFY(writeScript(m_places.installer, u"exit 0"_s));
        QVERIFY(writePkexec(u"exit 1"_s));
        QVERIFY(addHelper());
        FakeHelper helper(m_bus->connect(u"helper"_s), label);
        QVERIFY(helper.appear());
        makeService();
        QTRY_COMPARE(m_service->status(), enabled);
        registerService();
        QTRY_COMPARE(m_errors, QStringList{QString()});
        helper.leave();
        registerService();
        QTRY_COMPARE(m_errors.size(), 2);
        QVERIFY2(m_errors.constLast().startsWith(u"The background helper does not work: "_s),
            qPrintable(m_errors.constLast()));
    }

    void whatIsNowhereIsNotInstalled()
    {
        makeService();
        QTRY_COMPARE(m_service->status(), notFound);
        registerService();
        QTRY_COMPARE(m_errors, QStringList{u"The background helper is not installed."_s});
    }

    void theInstallerLiesInTheBundle()
    {
        const auto places = SystemdHelperService::places(u"/opt/tarvik"_s, label);
        QCOMPARE(places.installer, u"/opt/tarvik/Contents/SharedSupport/helper/install-helper"_s);
        QCOMPARE(places.installedFile, u"/usr/local/share/dbus-1/system-services/com.morvanta.Tarvik.helper.service"_s);
    }

private:
    void makeService() { makeService(m_bus->connect(u"client"_s)); }

    void makeService(const QDBusConnection& bus)
    {
        m_service = std::make_unique<SystemdHelperService>(bus, label, m_places);
        m_statusChanges = m_service->statusChanged.subscribe([this] { m_statuses.append(*m_service->status()); });
    }

    void registerService()
    {
        m_service->registerService([this](const QString& error) { m_errors.append(error); });
    }

    bool addHelper() { return m_bus->addService(label, u"/bin/false"_s); }

    bool writePkexec(const QString& script) { return writeScript(m_directory->filePath(u"pkexec"_s), script); }

    static bool writeScript(const QString& path, const QString& script)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write("#!/bin/sh\n" + script.toUtf8() + '\n') > 0
            && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    static qsizetype callsOf(const FakeBusObject& object, const QString& method)
    {
        return std::ranges::count(object.calls, method, &QDBusMessage::member);
    }

    const QByteArray m_path = qgetenv("PATH");
    std::optional<QTemporaryDir> m_directory;
    SystemdHelperService::Places m_places;
    std::optional<PrivateBus> m_bus;
    std::unique_ptr<FakeBusObject> m_systemd;
    std::unique_ptr<FakeBusObject> m_polkit;
    std::unique_ptr<SystemdHelperService> m_service;
    Subscription m_statusChanges;
    QList<HelperStatus> m_statuses;
    QStringList m_errors;
};

QTEST_GUILESS_MAIN(SystemdHelperServiceTest)
#include "SystemdHelperServiceTest.moc"
