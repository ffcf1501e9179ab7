// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/Clock.h"
#include "platform/linux/inhibitors/Inhibitor.h"

#include <memory>

namespace Tarvik {

class X11Connection;

/// Suspends an X server's own screen saver and display power management, which the server itself undoes when Tarvik
/// goes, and makes it believe in activity: against the programs that ask it for how long nobody has been active. Those
/// that wait for less than half a minute are not met.
class X11ScreenSaverInhibitor final : public Inhibitor {
public:
    /// Refused while there is no server. `clock` must outlive the object.
    X11ScreenSaverInhibitor(std::shared_ptr<X11Connection> connection, Clock& clock);
    ~X11ScreenSaverInhibitor() override;
    X11ScreenSaverInhibitor(const X11ScreenSaverInhibitor&) = delete;
    X11ScreenSaverInhibitor& operator=(const X11ScreenSaverInhibitor&) = delete;

    QString service() const override { return {}; }
    State state() const override;
    int error() const override;
    void setOwner(const QString&) override { }

private:
    void begin();
    void suspend();
    void reset();

    std::shared_ptr<X11Connection> m_connection;
    /// The server has suspended its timers for this object. It counts how often it was asked to.
    bool m_isSuspending = false;
    Subscription m_answer;
    Subscription m_arrivals;
    Subscription m_losses;
    std::unique_ptr<Timer> m_timer;
};

} // namespace Tarvik
