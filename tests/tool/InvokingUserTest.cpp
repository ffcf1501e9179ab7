// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/InvokingUser.h"

#include "support/TestSupport.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

using namespace Tarvik;

class InvokingUserTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void sudoIsSeenThrough_data()
    {
        QTest::addColumn<uint>("effectiveUser");
        QTest::addColumn<QString>("sudoUser");
        QTest::addColumn<QString>("sudoGroup");
        QTest::addColumn<uint>("user");
        QTest::addColumn<uint>("group");
        QTest::addColumn<bool>("isThroughSudo");

        QTest::newRow("plain user") << 1000U << QString() << QString() << 1000U << 7U << false;
        QTest::newRow("plain superuser") << 0U << QString() << QString() << 0U << 7U << false;
        QTest::newRow("sudo") << 0U << QStringLiteral("1000") << QStringLiteral("100") << 1000U << 100U << true;
        QTest::newRow("sudo to another user")
            << 33U << QStringLiteral("1000") << QStringLiteral("100") << 33U << 7U << false;
        QTest::newRow("superuser calls sudo") << 0U << QStringLiteral("0") << QStringLiteral("0") << 0U << 7U << false;
        QTest::newRow("no group") << 0U << QStringLiteral("1000") << QString() << 0U << 7U << false;
        QTest::newRow("letters") << 0U << QStringLiteral("1000x") << QStringLiteral("100") << 0U << 7U << false;
        QTest::newRow("negative") << 0U << QStringLiteral("-1") << QStringLiteral("100") << 0U << 7U << false;
        QTest::newRow("no user's number")
            << 0U << QStringLiteral("4294967295") << QStringLiteral("1") << 0U << 7U << false;
        QTest::newRow("too great") << 0U << QStringLiteral("4294967296") << QStringLiteral("1") << 0U << 7U << false;
    }

    void sudoIsSeenThrough()
    {
        QFETCH(uint, effectiveUser);
        QFETCH(QString, sudoUser);
        QFETCH(QString, sudoGroup);
        QFETCH(uint, user);
        QFETCH(uint, group);
        QFETCH(bool, isThroughSudo);
        const Environment environment = [&](const char* name) {
            const std::string_view key(name);
            return key == "SUDO_UID" ? sudoUser.toStdString()
                : key == "SUDO_GID"  ? sudoGroup.toStdString()
                                     : std::string();
        };
        const InvokingUser found = invokingUser(environment, effectiveUser, 7);
        QCOMPARE(found.user, user);
        QCOMPARE(found.group, group);
        QCOMPARE(found.isThroughSudo, isThroughSudo);
    }

    void steppingDownGivesUpTheSuperusersGroups()
    {
        // For good, so another process does it.
        const pid_t child = fork();
        if (child == 0) {
            const std::array<gid_t, 3> groups{0, 27, 44};
            const bool isSuperuser = setgroups(groups.size(), groups.data()) == 0;
            const bool isDone = becomeInvokingUser({12345, 23456, true});
            std::array<gid_t, 8> left{};
            const int count = getgroups(static_cast<int>(left.size()), left.data());
            const bool isBare = getuid() == 12345 && getegid() == 23456 && count == 1 && left[0] == 23456;
            // Nobody else can do it, and is told so.
            _exit(isSuperuser ? isDone && isBare : !isDone);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), 1);
    }
};

QTEST_GUILESS_MAIN(InvokingUserTest)
#include "InvokingUserTest.moc"
