// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "dbus/BusNameWatch.h"
#include "dbus/DBusCalls.h"
#include "dbus/DBusSignal.h"

#include <QDeadlineTimer>
#include <QList>
#include <QPoint>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <memory>

class QDBusError;

namespace Tarvik {

class UiLauncher;

/// Tarvik's side of the conversation with the UI process: starts it when a window is wanted and
/// tells it which. Windows that do not come up are logged and tried again at the next request, a process that hangs is
/// killed for it; nothing else is affected.
class UiProcess final {
public:
    /// `launcher` must outlive the object.
    UiProcess(UiLauncher& launcher, const QDBusConnection& bus);
    UiProcess(const UiProcess&) = delete;
    UiProcess& operator=(const UiProcess&) = delete;

    /// Where the tray item was clicked, as the tray tells it; the token may be empty.
    void showPanel(int x, int y, const QString& activationToken);
    /// Where the tray item is, as far as that is known of this session.
    void showPanelAtTray(const QString& activationToken);
    void showSettings(const QString& activationToken);
    void showOnboarding(const QString& activationToken);
    void showRestartAlert(const QString& activationToken);
    void showHelperApproval(const QString& activationToken);

    /// The panel has been opened or closed, or has gone with the process.
    std::function<void(bool isOpen)> onPanelChange;

    /// A window was asked for by the user, but the windows are not installed.
    std::function<void()> onMissing;

    /// The process runs or is wanted.
    bool isActive() const;

    /// `isActive()` may have changed.
    Signal<void()> activityChanged;

    /// The process has been called and has not answered yet.
    bool isCalling() const { return !m_calls.isEmpty(); }

private:
    struct Request {
        QString method;
        QVariantList arguments;
        bool isOfUser = false;
        /// A window that comes later than this would come as a surprise.
        QDeadlineTimer patience = QDeadlineTimer(std::chrono::seconds(3));
        /// The process may leave just when it is called; then it is started for this request, once.
        bool wasLaunchedFor = false;
        bool wasLaunchedForAgain = false;
    };

    void followOwner();
    void takePanel(const QDBusMessage& signal);
    void setIsPanelOpen(bool isOpen);
    void send(const Request& request);
    void noticeFailure(const Request& request, const QDBusError& error);
    void launchFor(Request request);
    void noticeEnd(const QString& failure);

    UiLauncher& m_launcher;
    QDBusConnection m_bus;
    BusNameWatch m_names;
    DBusCalls m_calls;
    std::unique_ptr<DBusSignal> m_signals;
    bool m_isPanelOpen = false;
    /// Where the tray item was found when the panel last opened; null when it never was.
    QPoint m_tray;
    /// Wait for the process to come up; of each window the last.
    QList<Request> m_requests;
    Subscription m_ends;
};

} // namespace Tarvik
