// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/updates/PackageKitTransaction.h"

#include "dbus/DBusProperties.h"

#include <QDBusError>
#include <QDBusObjectPath>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto packageKit = u"org.freedesktop.PackageKit"_s;
const auto transactionInterface = u"org.freedesktop.PackageKit.Transaction"_s;

const auto gone = u"PackageKit has gone."_s;

/// PK_EXIT_ENUM_SUCCESS.
constexpr uint success = 1;

bool isStillWaiting(const QDBusMessage& answer)
{
    const auto type = QDBusError(answer).type();
    return type == QDBusError::NoReply || type == QDBusError::Timeout || type == QDBusError::TimedOut;
}

} // namespace

PackageKitTransaction::PackageKitTransaction(
    QDBusConnection bus, Clock& clock, Request request, std::function<void(const Outcome& outcome)> done)
    : m_bus(std::move(bus))
    , m_clock(clock)
    , m_request(std::move(request))
    , m_done(std::move(done))
{
    m_call = callAsync(m_bus,
        QDBusMessage::createMethodCall(
            packageKit, u"/org/freedesktop/PackageKit"_s, packageKit, u"CreateTransaction"_s),
        [this](const QDBusMessage& created) { findOwner(created); },
        {.startsService = true});
}

void PackageKitTransaction::findOwner(const QDBusMessage& created)
{
    m_call.reset();
    if (created.signature() != "o"_L1) {
        finish(created.errorMessage());
        return;
    }
    m_path = created.arguments().constFirst().value<QDBusObjectPath>().path();
    m_life = std::make_unique<BusNameWatch>(m_bus, QStringList{packageKit});
    m_life->onKnown = [this] { begin(); };
    m_life->onOwnerChange = [this](const QString&) { finish(gone); };
}

void PackageKitTransaction::begin()
{
    // The unique name: a PackageKit that was started anew knows nothing of this transaction.
    m_owner = m_life->owner(packageKit);
    if (m_owner.isEmpty()) {
        finish(gone);
        return;
    }
    m_signals = std::make_unique<DBusSignal>(m_bus,
        DBusSignal::Source{m_owner, m_path, transactionInterface, {}, {}},
        [this](const QDBusMessage& signal) { receiveSignal(signal); });
    m_changes = std::make_unique<DBusSignal>(m_bus,
        DBusProperties::changesOf(m_owner, m_path, transactionInterface),
        [this](const QDBusMessage&) { m_hasShownLife = true; });
    m_lifeCheck = m_clock.every(patience, [this] { giveUpUnlessAlive(); });

    auto hints = methodCall(u"SetHints"_s);
    hints << (m_request.isInteractive ? QStringList{u"interactive=true"_s}
                                      : QStringList{u"interactive=false"_s, u"background=true"_s});
    m_bus.send(hints);
    auto work = methodCall(m_request.method);
    work.setArguments(m_request.arguments);
    m_call = callAsync(m_bus, work, [this](const QDBusMessage& answer) {
        // An accepted method is answered late where the user thinks about a password; then only the signal counts.
        if (answer.type() == QDBusMessage::ErrorMessage && !isStillWaiting(answer))
            finish(answer.errorMessage());
    });
}

QDBusMessage PackageKitTransaction::methodCall(const QString& method) const
{
    return QDBusMessage::createMethodCall(m_owner, m_path, transactionInterface, method);
}

void PackageKitTransaction::receiveSignal(const QDBusMessage& signal)
{
    m_hasShownLife = true;
    if (signal.member() == "Package"_L1 && signal.signature() == "uss"_L1)
        m_outcome.packageIds.append(signal.arguments().at(1).toString());
    else if (signal.member() == "ErrorCode"_L1 && signal.signature() == "us"_L1)
        m_errorDetails = signal.arguments().at(1).toString();
    else if (signal.member() == "Finished"_L1 && signal.signature() == "uu"_L1)
        receiveFinished(signal);
}

void PackageKitTransaction::receiveFinished(const QDBusMessage& signal)
{
    const uint exit = signal.arguments().at(0).toUInt();
    if (exit == success)
        finish({});
    else
        finish(m_errorDetails.isEmpty() ? u"PackageKit ended with the code %1."_s.arg(exit) : m_errorDetails);
}

void PackageKitTransaction::giveUpUnlessAlive()
{
    if (std::exchange(m_hasShownLife, false))
        return;
    m_bus.send(methodCall(u"Cancel"_s));
    finish(u"PackageKit has shown no sign of life for five minutes."_s);
}

void PackageKitTransaction::finish(const std::optional<QString>& error)
{
    if (std::exchange(m_isFinished, true))
        return;
    m_outcome.error = error;
    const auto done = m_done;
    const Outcome outcome = m_outcome;
    done(outcome);
}

} // namespace Tarvik
