// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QList>
#include <QVariantMap>

#include <fcntl.h>

namespace Tarvik {

/// One row of the answer to ListInhibitors.
struct FakeInhibitorRow {
    QString what;
    quint32 user = 0;
    quint32 process = 0;
    QString who = QStringLiteral("somebody");
    QString mode = QStringLiteral("block");
};

inline QDBusArgument& operator<<(QDBusArgument& argument, const FakeInhibitorRow& row)
{
    argument.beginStructure();
    argument << row.what << row.who << QStringLiteral("because") << row.mode << row.user << row.process;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, FakeInhibitorRow&)
{
    return argument;
}

/// org.freedesktop.login1 as far as a closed lid goes. Its list of inhibitors is what the test writes into it.
class FakeSleepLogind final : public FakeDBusService {
public:
    explicit FakeSleepLogind(QDBusConnection bus)
        : FakeDBusService(
            std::move(bus), QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"))
    {
        qDBusRegisterMetaType<FakeInhibitorRow>();
        qDBusRegisterMetaType<QList<FakeInhibitorRow>>();
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    QVariantMap properties{{QStringLiteral("LidClosed"), true},
        {QStringLiteral("Docked"), false},
        {QStringLiteral("OnExternalPower"), true}};
    QList<FakeInhibitorRow> inhibitors;
    bool grants = true;
    bool refusesSuspend = false;

    int listed = 0;
    QList<QVariantList> requests;
    QList<QVariantList> suspends;

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        const QString member = call.member();
        if (member == QStringLiteral("GetAll"))
            return call.createReply(properties);
        if (member == QStringLiteral("ListInhibitors")) {
            ++listed;
            return call.createReply(QVariant::fromValue(inhibitors));
        }
        if (member == QStringLiteral("Inhibit")) {
            requests.append(call.arguments());
            if (!grants)
                return call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no"));
            QDBusUnixFileDescriptor descriptor;
            descriptor.giveFileDescriptor(open("/dev/null", O_RDONLY | O_CLOEXEC));
            return call.createReply(QVariant::fromValue(descriptor));
        }
        if (member == QStringLiteral("Suspend")) {
            suspends.append(call.arguments());
            return refusesSuspend ? call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("not now"))
                                  : call.createReply();
        }
        return call.createErrorReply(QDBusError::UnknownMethod, member);
    }
};

} // namespace Tarvik
