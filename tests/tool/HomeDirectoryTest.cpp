// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/HomeDirectory.h"

#include "support/TestSupport.h"

#include <QFile>
#include <QTemporaryDir>

#include <optional>
#include <string>
#include <string_view>

using namespace Tarvik;

class HomeDirectoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theEnvironmentSaysItExceptThroughSudo_data()
    {
        QTest::addColumn<bool>("isThroughSudo");
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("home");

        const QString listed = QStringLiteral("/home/bob");
        QTest::newRow("environment") << false << QStringLiteral("/tmp/h") << QStringLiteral("/tmp/h");
        QTest::newRow("no environment") << false << QString() << listed;
        QTest::newRow("relative") << false << QStringLiteral("h") << listed;
        QTest::newRow("through sudo") << true << QStringLiteral("/root") << listed;
    }
    void theEnvironmentSaysItExceptThroughSudo()
    {
        QFETCH(const bool, isThroughSudo);
        QFETCH(const QString, variable);
        QFETCH(const QString, home);
        QCOMPARE(find("rubbish\nroot:x:0:0::/root:/bin/sh\nbob:x:1000:100:Bob:/home/bob:/bin/sh\n",
                     {1000, 100, isThroughSudo},
                     variable.toStdString()),
            std::optional(home.toStdString()));
    }

    void whoIsNotListedOrHasNoDirectoryHasNoHome()
    {
        const InvokingUser user{1000, 100, true};
        QCOMPARE(find("root:x:0:0::/root:/bin/sh\n", user, "/root"), std::nullopt);
        QCOMPARE(find("bob:x:1000:100:Bob::/bin/sh\n", user, "/root"), std::nullopt);
        QCOMPARE(find("", user, "/root"), std::nullopt);
        QCOMPARE(homeDirectory([](const char*) { return std::string(); }, user, "/nonexistent"), std::nullopt);
    }

private:
    static std::optional<std::string> find(
        const QByteArray& users, const InvokingUser& user, const std::string& variable)
    {
        const QTemporaryDir directory;
        QFile list(directory.filePath(QStringLiteral("passwd")));
        if (!list.open(QIODevice::WriteOnly) || list.write(users) != users.size() || !list.flush())
            return {};
        const auto environment
            = [&variable](const char* name) { return std::string_view(name) == "HOME" ? variable : std::string(); };
        return homeDirectory(environment, user, QFile::encodeName(list.fileName()).constData());
    }
};

QTEST_GUILESS_MAIN(HomeDirectoryTest)
#include "HomeDirectoryTest.moc"
