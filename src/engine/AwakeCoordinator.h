// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/AwakeRules.h"
#include "engine/Notifications.h"
#include "engine/TransitionRecorder.h"
#include "hotkey/HotKey.h"
#include "platform/Clock.h"
#include "platform/PowerAssertions.h"

#include <QObject>

#include <memory>
#include <optional>

namespace Tarvik {

class AppSettings;
class HookFiles;
class HookMonitor;
class HotKeyCenter;
class Journal;
class LidClosedMode;
class LoginItem;
class PowerMonitor;
class ProcessMonitor;
class ScreenLock;
class ThermalMonitor;

/// The heart of the application: listens to every monitor and to the settings, decides whether to keep the machine
/// awake, holds the power assertions accordingly, and publishes, journals and announces what it does.
class AwakeCoordinator : public QObject {
    Q_OBJECT

public:
    /// What is observed and what is written to.
    struct Parts {
        AppSettings& settings;
        PowerMonitor& power;
        ProcessMonitor& process;
        ThermalMonitor& thermal;
        Journal& journal;
        HookMonitor& hooks;
        LidClosedMode& lidClosed;
    };

    /// What the desktop does for the coordinator.
    struct Services {
        PowerAssertions& assertions;
        LoginItem& loginItem;
        UserNotifications& notifications;
        HotKeyCenter& hotKeys;
        ScreenLock& screenLock;
        Clock& clock;
    };

    /// Takes over the callbacks of all monitors, repairs the agents' hook entries and evaluates once. Everything passed
    /// in must outlive the coordinator, at whose end the machine may sleep again when its lid is closed.
    AwakeCoordinator(const Parts& parts, const Services& services, const HookFiles& hookFiles);
    ~AwakeCoordinator() override;

    bool isAwake() const { return m_status.isAwake; }
    /// Held back for a reason, or switched off.
    bool isPaused() const { return m_status.isPaused; }
    /// "Off", "Paused", "Awake" or "Watching".
    QString title() const { return m_status.title; }
    QString statusReason() const { return m_status.reason; }
    QString statusSubtitle() const { return m_status.subtitle; }
    QString statusDetails() const { return m_status.details; }

    /// The machine goes on running when its lid is closed, as far as is known.
    bool clamshellActive() const;
    bool helperInstalled() const;
    bool helperNeedsApproval() const;
    /// What the user should know of the background helper, an error or a confirmation; empty when there is nothing.
    QString lastHelperError() const;

    /// When the timed session ends; absent without one.
    std::optional<TimePoint> timedSessionEnd() const { return m_timedSessionEnd; }
    /// The end is set and still to come.
    bool isTimedSessionActive() const;

    /// Labels of everything that is working: holders of hook leases, then agents and editors, then applications.
    QStringList activeList() const;

    /// Starts a timed session of so many minutes, in place of a running one, or ends the running one.
    void setTimedSession(std::optional<int> minutes);

    /// Locks the screen, as the shortcut does.
    void lockScreen();

    /// Whether the shortcut that locks the screen is ours.
    HotKeyState lockHotKeyState() const { return m_lockHotKey->state(); }

    /// Decides anew and acts on it; called on every change.
    void evaluate() { evaluate(Cause::event); }

Q_SIGNALS:
    void isAwakeChanged();
    void isPausedChanged();
    void titleChanged();
    void statusReasonChanged();
    void statusSubtitleChanged();
    void statusDetailsChanged();
    void clamshellActiveChanged();
    /// One of the background helper's fields may have changed.
    void helperChanged();
    void timedSessionEndChanged();
    /// Follows every evaluation, whatever it changed.
    void evaluated();

private:
    /// Why everything is decided anew.
    enum class Cause {
        /// Time has passed, or a sensor tells another value: nothing that a user would connect with a prompt.
        reading,
        event,
    };

    struct Status {
        bool isAwake = false;
        bool isPaused = false;
        QString title = QStringLiteral("Watching");
        QString reason = QStringLiteral("Dozing — nothing to watch");
        QString subtitle = QStringLiteral("Not watching");
        QString details;
    };

    void listen();
    /// For notifications.
    void requestPermission(bool isWanted);
    void evaluate(Cause cause);
    void evaluateSoon(Cause cause);
    void checkPowerEdge();
    AwakeRules::Inputs inputs(const QStringList& activeList) const;
    void updateAssertions(bool awake);
    void updateLidClosedMode(bool awake, Cause cause);
    void hold(std::unique_ptr<PowerAssertion>& assertion, PowerAssertionType type, bool wanted);
    Status describe(const AwakeRules::Decision& decision, const QStringList& activeList) const;
    void publish(const Status& status);
    void changeTimedSession(std::optional<int> minutes, Cause cause);
    void setTimedSessionEnd(std::optional<TimePoint> end);

    Parts m_parts;
    PowerAssertions& m_assertions;
    ScreenLock& m_screenLock;
    Clock& m_clock;
    Notifications m_notifications;
    TransitionRecorder m_transitions;
    Subscription m_failures;
    Subscription m_loginItemChanges;

    Status m_status;
    std::optional<TimePoint> m_timedSessionEnd;
    std::unique_ptr<Timer> m_sessionTimer;
    std::unique_ptr<Timer> m_minuteTimer;
    std::optional<HotKey> m_lockHotKey;
    std::unique_ptr<PowerAssertion> m_systemAssertion;
    std::unique_ptr<PowerAssertion> m_displayAssertion;
    std::optional<bool> m_wasOnAC;
    bool m_wasLidClosed = false;
    /// Why there is to be an evaluation as soon as the event loop turns, if there is.
    std::optional<Cause> m_scheduledCause;
};

} // namespace Tarvik
