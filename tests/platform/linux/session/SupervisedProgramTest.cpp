// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/SupervisedProgram.h"

#include "platform/linux/applications/UnitNames.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

class SupervisedProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theUnitIsCalledLikeADesktopsApplication()
    {
        const QString name = SupervisedProgram::unitName(application, 4711);
        QCOMPARE(name, u"app-com.morvanta.Tarvik@4711.service"_s);
        QCOMPARE(UnitNames::desktopId(name), std::optional(application));
    }

    void onlyAUnitOfOursIsOne_data()
    {
        QTest::addColumn<QByteArray>("cgroup");
        QTest::addColumn<bool>("isOurs");
        const QByteArray user = "0::/user.slice/user-1000.slice/user@1000.service/app.slice/";
        QTest::newRow("ours") << user + "app-com.morvanta.Tarvik@4711.service" << true;
        QTest::newRow("ours, and version 1")
            << "1:name=systemd:/\n" + user + "app-com.morvanta.Tarvik@4711.service\n2:cpu:/\n"
            << true;
        QTest::newRow("started by KDE at login") << user + "app-com.morvanta.Tarvik@autostart.service" << false;
        QTest::newRow("started by KDE") << user + "app-com.morvanta.Tarvik@0b3a5c7e1f2d4a6b8c0e2f4a6b8c0d1e.service"
                                        << false;
        QTest::newRow("started by GNOME") << user + "app-gnome-com.morvanta.Tarvik-4711.scope" << false;
        QTest::newRow("part of ours") << user + "app-com.morvanta.Tarvik@4711.service/other.scope" << false;
        QTest::newRow("another application") << user + "app-com.morvanta.Tarviks@4711.service" << false;
        QTest::newRow("no number") << user + "app-com.morvanta.Tarvik@.service" << false;
        QTest::newRow("session") << QByteArray("0::/user.slice/user-1000.slice/session-3.scope") << false;
        QTest::newRow("none") << QByteArray("0::/") << false;
        QTest::newRow("nothing") << QByteArray() << false;
    }

    void onlyAUnitOfOursIsOne()
    {
        QFETCH(QByteArray, cgroup);
        QTEST(SupervisedProgram::isUnitOf(application, cgroup), "isOurs");
    }

    void theEnvironmentIsPassedOnButForWhatIsSaidToEachProcess()
    {
        const QStringList environment{u"DISPLAY=:0"_s,
            u"EMPTY="_s,
            u"EQUATION=a=b"_s,
            u"INVOCATION_ID=29ed7da5"_s,
            u"JOURNAL_STREAM=9:623624"_s,
            u"NOTIFY_SOCKET=/run/user/1000/systemd/notify"_s,
            u"BASH_FUNC_module%%=() {  true; }"_s,
            u"1ST=first"_s,
            u"=C:"_s,
            u"no variable"_s,
            u"_=/usr/bin/tarvik"_s};
        QCOMPARE(
            SupervisedProgram::passedOn(environment), (QStringList{u"DISPLAY=:0"_s, u"EMPTY="_s, u"EQUATION=a=b"_s}));
    }

    void whatTheSessionDoesNotHaveIsNotInheritedEither()
    {
        const QStringList missing
            = SupervisedProgram::missing({u"DISPLAY=:0"_s, u"XDG_CURRENT_DESKTOP=XFCE"_s, u"XAUTHORITY="_s});
        QVERIFY(missing.contains(u"WAYLAND_DISPLAY"_s));
        QVERIFY(missing.contains(u"XDG_SESSION_ID"_s));
        for (const auto& present : {u"DISPLAY"_s, u"XDG_CURRENT_DESKTOP"_s, u"XAUTHORITY"_s})
            QVERIFY(!missing.contains(present));
    }

    void thisProcessIsDescribedAsItIs()
    {
        qputenv("TARVIK_TEST_VARIABLE", "a value");
        const SupervisedProgram program = SupervisedProgram::current();
        QCOMPARE(program.path, QCoreApplication::applicationFilePath());
        QCOMPARE(program.processId, QCoreApplication::applicationPid());
        QVERIFY(program.environment.contains(u"TARVIK_TEST_VARIABLE=a value"_s));
        QVERIFY(program.cgroup.contains(":/"));
    }

private:
    static inline const QString application = u"com.morvanta.Tarvik"_s;
};

QTEST_GUILESS_MAIN(SupervisedProgramTest)
#include "SupervisedProgramTest.moc"
