// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/updates/PackageKitTransaction.h"

#include "platform/linux/dbus/BusOwner.h"

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
    m_call = callAsync(
        m_bus,
        QDBusMessage::createMethodCall(
            packageKit, u"/org/freedesktop/PackageKit"_s, packageKit, u"CreateTransaction"_s),
        [this](const QDBusMessage& created) { findOwner(created); },
        ServiceStart::ifNeeded);
}

void PackageKitTransaction::findOwner(const QDBusMessage& created)
{
    if (created.signature() != "o"_L1) {
        finish(created.errorMessage());
        return;
    }
    m_path = created.arguments().constFirst().value<QDBusObjectPath>().path();
    m_call = callAsync(
        m_bus, BusOwner::question(packageKit), [this](const QDBusMessage& answer) { begin(BusOwner::in(answer)); });
}

void PackageKitTransaction::begin(const QString& owner)
{
    if (owner.isEmpty()) {
        finish(gone);
        return;
    }
    // The unique name: a PackageKit that was started anew knows nothing of this transaction.
    m_service = owner;
    listen();
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

void PackageKitTransaction::listen()
{
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    m_watcher.addWatchedService(m_service);
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { finish(gone); });
    const auto connectTo = [this](const QString& name, const char* slot) {
        m_bus.connect(m_service, m_path, transactionInterface, name, this, slot);
    };
    connectTo(u"Package"_s, SLOT(receivePackage(QDBusMessage)));
    connectTo(u"ErrorCode"_s, SLOT(receiveErrorCode(QDBusMessage)));
    connectTo(u"Finished"_s, SLOT(receiveFinished(QDBusMessage)));
    const auto anySignal = QString();
    connectTo(anySignal, SLOT(noticeLife()));
    m_bus.connect(
        m_service, m_path, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, this, SLOT(noticeLife()));
}

QDBusMessage PackageKitTransaction::methodCall(const QString& method) const
{
    return QDBusMessage::createMethodCall(m_service, m_path, transactionInterface, method);
}

void PackageKitTransaction::receivePackage(const QDBusMessage& signal)
{
    if (signal.signature() == "uss"_L1)
        m_outcome.packageIds.append(signal.arguments().at(1).toString());
}

void PackageKitTransaction::receiveErrorCode(const QDBusMessage& signal)
{
    if (signal.signature() == "us"_L1)
        m_errorDetails = signal.arguments().at(1).toString();
}

void PackageKitTransaction::receiveFinished(const QDBusMessage& signal)
{
    if (signal.signature() != "uu"_L1)
        return;
    const uint exit = signal.arguments().at(0).toUInt();
    if (exit == success)
        finish({});
    else
        finish(m_errorDetails.isEmpty() ? u"PackageKit ended with the code %1."_s.arg(exit) : m_errorDetails);
}

void PackageKitTransaction::noticeLife()
{
    m_hasShownLife = true;
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
