// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusError>
#include <QDBusObjectPath>
#include <QMap>

#include <optional>

namespace Tarvik {

/// The service org.freedesktop.PackageKit. What a method of a transaction tells is in `outcomes`.
class FakePackageKit final : public FakeDBusService {
public:
    struct Outcome {
        QStringList packageIds = {};
        /// Makes the transaction fail.
        QString error = {};
        /// Refuses the method itself.
        bool isRefused = false;
        /// Whether the transaction ends at all.
        bool ends = true;
    };

    explicit FakePackageKit(const QDBusConnection& bus)
        : FakeDBusService(bus,
            QStringLiteral("org.freedesktop.PackageKit"),
            QStringLiteral("/org/freedesktop/PackageKit"),
            QDBusConnection::SubPath)
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    void emitFrom(const QString& path,
        const QString& name,
        const QVariantList& values,
        const QString& interface = transactionInterface())
    {
        auto signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(values);
        m_bus.send(signal);
    }

    /// The path of the transaction that was made last.
    QString currentPath() const { return QStringLiteral("/org/freedesktop/PackageKit/%1").arg(m_count); }

    QMap<QString, Outcome> outcomes;
    /// The methods that were run, each with its arguments.
    QStringList methods;
    QList<QVariantList> arguments;
    /// What the last transaction was told before it began.
    QStringList hints;
    /// How often the last transaction was cancelled.
    int cancellations = 0;

private:
    static QString transactionInterface() { return QStringLiteral("org.freedesktop.PackageKit.Transaction"); }

    QDBusMessage answer(const QDBusMessage& call)
    {
        if (call.member() == QStringLiteral("CreateTransaction")) {
            ++m_count;
            cancellations = 0;
            return call.createReply(QVariant::fromValue(QDBusObjectPath(currentPath())));
        }
        if (call.interface() != transactionInterface() || call.path() != currentPath())
            return call.createErrorReply(QDBusError::UnknownObject, call.path());
        if (call.member() == QStringLiteral("SetHints")) {
            hints = call.arguments().constFirst().toStringList();
            return call.createReply();
        }
        if (call.member() == QStringLiteral("Cancel")) {
            ++cancellations;
            return call.createReply();
        }
        methods.append(call.member());
        arguments.append(call.arguments());
        const Outcome outcome = outcomes.value(call.member());
        if (outcome.isRefused)
            return call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("Not authorised"));
        m_bus.send(call.createReply());
        tell(outcome);
        return {};
    }

    void tell(const Outcome& outcome)
    {
        constexpr uint available = 2;
        constexpr uint succeeded = 1;
        constexpr uint failed = 2;
        for (const QString& id : outcome.packageIds)
            emitFrom(currentPath(), QStringLiteral("Package"), {available, id, QStringLiteral("Summary")});
        if (!outcome.ends)
            return;
        if (!outcome.error.isEmpty())
            emitFrom(currentPath(), QStringLiteral("ErrorCode"), {uint{2}, outcome.error});
        emitFrom(currentPath(), QStringLiteral("Finished"), {outcome.error.isEmpty() ? succeeded : failed, uint{10}});
    }

    int m_count = 0;
};

} // namespace Tarvik
