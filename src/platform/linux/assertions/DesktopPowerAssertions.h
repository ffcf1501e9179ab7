// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerAssertions.h"
#include "platform/linux/assertions/DesktopFactsWatch.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace Tarvik {

/// Holds sleep off through the services of the desktop that is running, and of the one that appears later.
/// Calls `onFailure` once for an assertion, and both callbacks from the event loop only.
class DesktopPowerAssertions final : public PowerAssertions {
public:
    /// Makes what keeps an X server's screen on; none where no X server has the screen.
    using X11ScreenSaver = std::function<std::unique_ptr<Inhibitor>()>;

    /// `currentDesktop` is the value of XDG_CURRENT_DESKTOP. Either bus may be without connection.
    DesktopPowerAssertions(QDBusConnection systemBus,
        QDBusConnection sessionBus,
        const QString& currentDesktop,
        X11ScreenSaver x11ScreenSaver);
    ~DesktopPowerAssertions() override;
    DesktopPowerAssertions(const DesktopPowerAssertions&) = delete;
    DesktopPowerAssertions& operator=(const DesktopPowerAssertions&) = delete;

    std::unique_ptr<PowerAssertion> create(PowerAssertionType type, const QString& name) override;
    QList<PowerAssertionHold> holds() const override;

private:
    class Assertion;

    void schedulePublishing();
    void publish();

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    X11ScreenSaver m_x11ScreenSaver;
    DesktopFactsWatch m_watch;
    std::vector<Assertion*> m_assertions;
    bool m_publishingScheduled = false;
    QObject m_eventLoop;
};

} // namespace Tarvik
