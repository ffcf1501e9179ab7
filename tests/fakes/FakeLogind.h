// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeInhibitorService.h"

#include <QDBusUnixFileDescriptor>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <vector>

namespace Tarvik {

/// org.freedesktop.login1, as far as inhibitors go: each one lasts until nobody has its file descriptor open any more.
class FakeLogind final : public FakeInhibitorService {
public:
    explicit FakeLogind(QDBusConnection bus)
        : FakeInhibitorService(std::move(bus),
            QStringLiteral("org.freedesktop.login1"),
            QStringLiteral("/org/freedesktop/login1"),
            QStringLiteral("org.freedesktop.login1.Manager"))
    {
    }

    ~FakeLogind() override
    {
        for (const Lock& lock : m_locks)
            close(lock.readEnd);
    }

    QList<QVariantList> held() const override
    {
        QList<QVariantList> list;
        for (const Lock& lock : m_locks) {
            pollfd state{.fd = lock.readEnd, .events = 0, .revents = 0};
            if (poll(&state, 1, 0) == 0)
                list.append(lock.arguments);
        }
        return list;
    }

protected:
    QDBusMessage grant(const QDBusMessage& call) override
    {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            qFatal("pipe2 failed");
        QDBusUnixFileDescriptor writeEnd;
        writeEnd.giveFileDescriptor(ends[1]);
        m_locks.push_back({ends[0], call.arguments()});
        return call.createReply(QVariant::fromValue(writeEnd));
    }

private:
    struct Lock {
        int readEnd;
        QVariantList arguments;
    };

    std::vector<Lock> m_locks;
};

} // namespace Tarvik
