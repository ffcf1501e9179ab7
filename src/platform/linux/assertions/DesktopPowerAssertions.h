// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/PowerAssertions.h"
#include "platform/linux/assertions/DesktopFactsWatch.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace Tarvik {

/// Holds sleep off through the services of the desktop that is running, and of the one that appears later.
/// Tells `failed` once for an assertion, and both signals from the event loop only.
class DesktopPowerAssertions final : public PowerAssertions {
public:
    /// Makes what keeps an X server's screen on; none where no X server has the screen.
    using X11ScreenSaver = std::function<std::unique_ptr<Inhibitor>()>;

    /// How long a desktop is held that is to count the time without activity anew: idle daemons look at the locks a
    /// moment after they have changed.
    static constexpr Seconds rearmingTime{1};

    /// `currentDesktop` is the value of XDG_CURRENT_DESKTOP. Either bus may be without connection. `clock` must outlive
    /// the object.
    DesktopPowerAssertions(QDBusConnection systemBus,
        QDBusConnection sessionBus,
        const QString& currentDesktop,
        X11ScreenSaver x11ScreenSaver,
        Clock& clock);
    /// Waits, as long as `rearmingTime` at most, where a desktop is still to count anew: with the process its hold
    /// would end before anybody has looked.
    ~DesktopPowerAssertions() override;
    DesktopPowerAssertions(const DesktopPowerAssertions&) = delete;
    DesktopPowerAssertions& operator=(const DesktopPowerAssertions&) = delete;

    std::unique_ptr<PowerAssertion> create(PowerAssertionType type, const QString& name) override;
    QList<PowerAssertionHold> holds() const override;

private:
    class Assertion;

    std::unique_ptr<Inhibitor> makeInhibitor(DesktopHold kind, const QString& who);
    void rearm(const QString& who);
    void finishRearming();
    void schedulePublishing();
    void publish();

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    X11ScreenSaver m_x11ScreenSaver;
    Clock& m_clock;
    DesktopFactsWatch m_watch;
    std::vector<Assertion*> m_assertions;
    std::vector<std::unique_ptr<Inhibitor>> m_rearming;
    std::unique_ptr<Timer> m_rearmingEnd;
    Signal<void()> m_rearmed;
    bool m_publishingScheduled = false;
    QObject m_eventLoop;
};

} // namespace Tarvik
