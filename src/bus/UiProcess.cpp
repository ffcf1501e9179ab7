// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/UiProcess.h"

#include "core/Logging.h"
#include "dbus/DBusErrors.h"
#include "dbus/contracts/UiWire.h"
#include "platform/UiLauncher.h"

#include <QDBusError>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tarvik {

namespace {

const auto uiBusName = QString::fromLatin1(UiWire::busName);

constexpr auto answerPatience = 5s;

} // namespace

UiProcess::UiProcess(UiLauncher& launcher, const QDBusConnection& bus)
    : m_launcher(launcher)
    , m_bus(bus)
    , m_names(bus, {uiBusName})
    , m_ends(launcher.ended.subscribe([this](const QString& failure) { noticeEnd(failure); }))
{
    m_names.onKnown = [this] { followOwner(); };
    m_names.onOwnerChange = [this](const QString&) {
        followOwner();
        if (!m_names.isOwned(uiBusName))
            return;
        for (const Request& request : std::exchange(m_requests, {}))
            send(request);
    };
}

void UiProcess::showPanel(int x, int y, const QString& activationToken)
{
    send({.method = u"ShowPanel"_s, .arguments = {x, y, activationToken}, .isOfUser = true});
}

void UiProcess::showPanelAtTray(const QString& activationToken)
{
    send({.method = u"ShowPanelAtTray"_s, .arguments = {m_tray.x(), m_tray.y(), activationToken}, .isOfUser = true});
}

void UiProcess::showSettings(const QString& activationToken)
{
    send({.method = u"ShowSettings"_s, .arguments = {activationToken}, .isOfUser = true});
}

void UiProcess::showOnboarding(const QString& activationToken)
{
    send({.method = u"ShowOnboarding"_s, .arguments = {activationToken}});
}

void UiProcess::showRestartAlert(const QString& activationToken)
{
    send({.method = u"ShowRestartAlert"_s, .arguments = {activationToken}});
}

void UiProcess::showHelperApproval(const QString& activationToken)
{
    send({.method = u"ShowHelperApproval"_s, .arguments = {activationToken}});
}

bool UiProcess::isActive() const
{
    return m_names.isOwned(uiBusName) || !m_requests.isEmpty() || isCalling();
}

void UiProcess::followOwner()
{
    m_signals.reset();
    setIsPanelOpen(false);
    activityChanged();
    if (!m_names.isOwned(uiBusName))
        return;
    m_signals = std::make_unique<DBusSignal>(m_bus,
        DBusSignal::Source{m_names.owner(uiBusName),
            QString::fromLatin1(UiWire::objectPath),
            QString::fromLatin1(UiWire::windowsInterface),
            {},
            {}},
        [this](const QDBusMessage& signal) { takePanel(signal); });
}

void UiProcess::takePanel(const QDBusMessage& signal)
{
    if (signal.member() == "PanelClosed"_L1)
        setIsPanelOpen(false);
    if (signal.member() != "PanelOpened"_L1 || signal.signature() != "ii"_L1)
        return;
    const QPoint tray(signal.arguments().at(0).toInt(), signal.arguments().at(1).toInt());
    if (!tray.isNull())
        m_tray = tray;
    setIsPanelOpen(true);
}

void UiProcess::setIsPanelOpen(bool isOpen)
{
    if (std::exchange(m_isPanelOpen, isOpen) != isOpen && onPanelChange)
        onPanelChange(isOpen);
}

void UiProcess::send(const Request& request)
{
    auto message = QDBusMessage::createMethodCall(uiBusName,
        QString::fromLatin1(UiWire::objectPath),
        QString::fromLatin1(UiWire::windowsInterface),
        request.method);
    message.setArguments(request.arguments);
    m_calls.send(m_bus,
        message,
        [this, request](const QDBusMessage& answer) {
            if (answer.type() == QDBusMessage::ErrorMessage)
                noticeFailure(request, QDBusError(answer));
        },
        {.patience = answerPatience});
}

void UiProcess::noticeFailure(const Request& request, const QDBusError& error)
{
    if (DBusErrors::isPeerGone(error.name()) && !request.wasLaunchedFor && !request.patience.hasExpired()) {
        launchFor(request);
        return;
    }
    if (error.type() != QDBusError::NoReply) {
        qCWarning(logSystem, "The UI process did not show a window: %ls", qUtf16Printable(error.message()));
        return;
    }
    // No answer so soon means that it has ended, of which the launcher tells.
    if (!request.patience.hasExpired())
        return;
    // It has nothing to lose, and only its end lets the next click start another one.
    qCWarning(logSystem, "The UI process does not answer and is killed");
    m_launcher.kill();
}

void UiProcess::launchFor(Request request)
{
    if (!m_launcher.isInstalled()) {
        qCInfo(logSystem, "There is no program to show windows with");
        if (request.isOfUser && onMissing)
            onMissing();
        return;
    }
    request.wasLaunchedFor = true;
    m_requests.removeIf([&request](const Request& other) { return other.method == request.method; });
    m_requests.append(request);
    m_launcher.launch();
}

void UiProcess::noticeEnd(const QString& failure)
{
    const auto requests = std::exchange(m_requests, {});
    if (!failure.isEmpty()) {
        qCWarning(logSystem, "The UI process failed: %ls", qUtf16Printable(failure));
        activityChanged();
        return;
    }
    // They came while the process was on its way out.
    for (Request request : requests) {
        if (!request.patience.hasExpired() && !std::exchange(request.wasLaunchedForAgain, true))
            launchFor(request);
    }
}

} // namespace Tarvik
