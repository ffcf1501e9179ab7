// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusError>
#include <QDBusVariant>
#include <QStringList>

namespace Tarvik {

/// Somebody who can be asked to lock the screen: notes it in `log`, which lockers may share, and does it or not.
class FakeLocker : public FakeDBusService {
public:
    /// Screen savers have the name of their service as the name of their interface.
    FakeLocker(QDBusConnection bus, const QString& service, const QString& path, QStringList& log)
        : FakeDBusService(std::move(bus), service, path)
        , m_log(log)
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// Knows and tells whether the screen is locked.
    bool isLocked = false;
    bool locksWhenAsked = false;
    bool refuses = false;
    bool isSlow = false;
    /// What the answer to "Lock" holds.
    QVariantList lockAnswer;
    int lockRequests = 0;
    int questions = 0;

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (isSlow)
            return {};
        if (call.member() == QStringLiteral("Lock")) {
            ++lockRequests;
            m_log.append(service() + call.path());
            if (refuses)
                return call.createErrorReply(QDBusError::NotSupported, QStringLiteral("Not on this desktop"));
            isLocked = isLocked || locksWhenAsked;
            return call.createReply(lockAnswer);
        }
        ++questions;
        if (call.member() == QStringLiteral("Get"))
            return call.createReply(QVariant::fromValue(QDBusVariant(isLocked)));
        return call.createReply(isLocked);
    }

    QStringList& m_log;
};

} // namespace Tarvik
