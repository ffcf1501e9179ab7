// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/Clock.h"
#include "platform/linux/sleep/DisplaySwitch.h"

#include <functional>
#include <memory>

namespace Tarvik {

class X11Connection;

/// By the X server's Display Power Management Signaling (DPMS), after which activity switches on.
class X11DisplaySwitch final : public DisplaySwitch {
public:
    /// Somebody who has just moved the pointer would switch on again at once.
    static constexpr Seconds delay{0.5};

    /// `clock` must outlive the object.
    X11DisplaySwitch(std::shared_ptr<X11Connection> connection, Clock& clock);
    ~X11DisplaySwitch() override;

    X11DisplaySwitch(const X11DisplaySwitch&) = delete;
    X11DisplaySwitch& operator=(const X11DisplaySwitch&) = delete;

    void switchOff(Receiver done) override;
    void switchOn() override;

private:
    void begin();
    void askWhetherCapable();
    void askForState();
    void force();
    void await(unsigned int sequence, std::function<void(const void* reply)> take);
    void finish(const QString& error);

    std::shared_ptr<X11Connection> m_connection;
    Clock& m_clock;
    Receiver m_done;
    std::unique_ptr<Timer> m_timer;
    Subscription m_answer;
    Subscription m_loss;
    bool m_isOff = false;
    /// The user has switched DPMS off, which is to be so again.
    bool m_wasDisabled = false;
};

} // namespace Tarvik
