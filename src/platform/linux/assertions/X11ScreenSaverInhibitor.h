// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/Clock.h"
#include "platform/linux/inhibitors/Inhibitor.h"

#include <memory>

namespace Tarvik {

class X11Connection;

/// Makes an X server believe in activity: against its own screen saver and display power management, and against the
/// programs that ask it for how long nobody has been active. Timeouts of less than half a minute are not met.
class X11ScreenSaverInhibitor final : public Inhibitor {
public:
    /// Refused while there is no server. `clock` must outlive the object.
    X11ScreenSaverInhibitor(std::shared_ptr<X11Connection> connection, Clock& clock);
    X11ScreenSaverInhibitor(const X11ScreenSaverInhibitor&) = delete;
    X11ScreenSaverInhibitor& operator=(const X11ScreenSaverInhibitor&) = delete;

    QString service() const override { return {}; }
    State state() const override;
    int error() const override;
    void setOwner(const QString&) override { }

private:
    void reset();

    std::shared_ptr<X11Connection> m_connection;
    Subscription m_arrivals;
    std::unique_ptr<Timer> m_timer;
};

} // namespace Tarvik
