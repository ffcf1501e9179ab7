// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/BusAddress.h"

#include "support/TestSupport.h"

#include <map>

using namespace Tarvik;

using Variables = std::map<std::string, std::string>;

static Environment environmentOf(const Variables& variables)
{
    return [variables](const char* name) {
        const auto variable = variables.find(name);
        return variable == variables.end() ? std::string() : variable->second;
    };
}

/// One word per address: "path:/x", "abstract:y", with "own:" before those that must belong to the user.
static QString described(const std::vector<BusAddress>& addresses)
{
    QStringList words;
    for (const BusAddress& address : addresses) {
        words.append((address.mustBelongToUser ? QStringLiteral("own:") : QString())
            + (address.kind == BusAddress::Kind::path ? QStringLiteral("path:") : QStringLiteral("abstract:"))
            + QString::fromStdString(address.name));
    }
    return words.join(QLatin1Char(' '));
}

class BusAddressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void candidatesComeInTheOrderOfTrust_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("runtimeDirectory");
        QTest::addColumn<QString>("expected");

        const auto row = [](const char* name, const char* address, const char* directory, const char* expected) {
            QTest::newRow(name) << QString::fromUtf8(address) << QString::fromUtf8(directory)
                                << QString::fromUtf8(expected);
        };
        row("empty environment", "", "", "own:path:/run/user/1000/bus");
        row("usual desktop", "unix:path=/run/user/1000/bus", "/run/user/1000", "path:/run/user/1000/bus");
        row("stale address",
            "unix:path=/tmp/dbus-old,guid=12",
            "/run/user/1000",
            "path:/tmp/dbus-old own:path:/run/user/1000/bus");
        row("other runtime directory", "", "/tmp/run", "own:path:/tmp/run/bus own:path:/run/user/1000/bus");
        row("relative runtime directory", "", "run", "own:path:/run/user/1000/bus");
        row("abstract socket",
            "unix:abstract=/tmp/dbus-Ab,guid=0",
            "",
            "abstract:/tmp/dbus-Ab own:path:/run/user/1000/bus");
        row("guid first", "unix:guid=0,path=/a", "", "path:/a own:path:/run/user/1000/bus");
        row("list",
            "unix:path=/a;unix:abstract=b;tcp:host=localhost,port=1;unix:path=/c",
            "",
            "path:/a abstract:b path:/c own:path:/run/user/1000/bus");
        row("empty entries", ";;unix:path=/a;;", "", "path:/a own:path:/run/user/1000/bus");
        row("runtime=yes", "unix:runtime=yes", "/r", "path:/r/bus own:path:/run/user/1000/bus");
        row("runtime=yes without a directory", "unix:runtime=yes", "", "own:path:/run/user/1000/bus");
        row("runtime=no", "unix:runtime=no", "/r", "own:path:/r/bus own:path:/run/user/1000/bus");
        row("escapes", "unix:path=/tmp/a%20b%2cc%3B%c3%A9", "", "path:/tmp/a b,c;é own:path:/run/user/1000/bus");
        row("escape cut off", "unix:path=/tmp/a%2", "", "own:path:/run/user/1000/bus");
        row("escape of letters", "unix:path=/tmp/a%zz", "", "own:path:/run/user/1000/bus");
        row("escaped zero", "unix:path=/tmp/a%00b", "", "own:path:/run/user/1000/bus");
        row("no value", "unix:path", "", "own:path:/run/user/1000/bus");
        row("directory to listen in", "unix:tmpdir=/tmp;unix:dir=/tmp", "", "own:path:/run/user/1000/bus");
        row("autolaunch", "autolaunch:", "", "own:path:/run/user/1000/bus");
        row("nonsense", "hello", "", "own:path:/run/user/1000/bus");
        row("twice the same", "unix:path=/a;unix:path=/a", "", "path:/a own:path:/run/user/1000/bus");
    }

    void candidatesComeInTheOrderOfTrust()
    {
        QFETCH(QString, address);
        QFETCH(QString, runtimeDirectory);
        QFETCH(QString, expected);
        const Environment environment = environmentOf(
            {{"DBUS_SESSION_BUS_ADDRESS", address.toStdString()}, {"XDG_RUNTIME_DIR", runtimeDirectory.toStdString()}});
        QCOMPARE(described(sessionBusCandidates(environment, 1000)), expected);
    }

    void theRuntimeDirectoryIsThatOfTheUser()
    {
        QCOMPARE(
            described(sessionBusCandidates(environmentOf({}), 1234)), QStringLiteral("own:path:/run/user/1234/bus"));
    }
};

QTEST_GUILESS_MAIN(BusAddressTest)
#include "BusAddressTest.moc"
