// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "tool/SessionBus.h"

#include "support/TestSupport.h"

#include <QFile>
#include <QTemporaryDir>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

using namespace Tarvik;
using namespace std::chrono_literals;

class SessionBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void aGuessedSocketMustBelongToTheUser()
    {
        const QTemporaryDir directory;
        const std::string path = QFile::encodeName(directory.filePath(QStringLiteral("bus"))).toStdString();
        const FileDescriptor listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        QVERIFY(path.size() < sizeof(address.sun_path));
        std::memcpy(address.sun_path, path.data(), path.size());
        QCOMPARE(bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        QCOMPARE(listen(listener.get(), 8), 0);

        const uid_t owner = geteuid();
        const auto isConnected = [&](bool mustBelongToUser, uid_t user) {
            return SessionBus({BusAddress::Kind::path, path, mustBelongToUser}, user, Deadline(10s)).isConnected();
        };
        QVERIFY(isConnected(true, owner));
        QVERIFY(!isConnected(true, owner + 1));
        // What the user's environment names may be anybody's.
        QVERIFY(isConnected(false, owner + 1));
    }

    void aGuessedPathThatIsNoSocketIsNoBus()
    {
        const QTemporaryDir directory;
        const std::string path = QFile::encodeName(directory.path()).toStdString();
        QVERIFY(!SessionBus({BusAddress::Kind::path, path, true}, geteuid(), Deadline(10s)).isConnected());
        QVERIFY(!SessionBus({BusAddress::Kind::path, path + "/none", true}, geteuid(), Deadline(10s)).isConnected());
    }
};

QTEST_GUILESS_MAIN(SessionBusTest)
#include "SessionBusTest.moc"
