// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/linux/inhibitors/Inhibitor.h"

#include <QByteArray>

#include <memory>

struct xcb_connection_t;

namespace Tarvik {

/// Makes an X server believe in activity: against its own screen saver and display power management, and against the
/// programs that ask it for how long nobody has been active. Timeouts of less than half a minute are not met. A server
/// that takes the place of one that has crashed believes it half a minute later.
class X11ScreenSaverInhibitor final : public Inhibitor {
public:
    /// `display` as in DISPLAY; refused where it cannot be reached. `clock` must outlive the object.
    X11ScreenSaverInhibitor(const QByteArray& display, Clock& clock);
    ~X11ScreenSaverInhibitor() override;
    X11ScreenSaverInhibitor(const X11ScreenSaverInhibitor&) = delete;
    X11ScreenSaverInhibitor& operator=(const X11ScreenSaverInhibitor&) = delete;

    QString service() const override { return {}; }
    State state() const override;
    int error() const override;
    void setOwner(const QString&) override { }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const;
    };

    void connect();
    void reset();

    QByteArray m_display;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::unique_ptr<Timer> m_timer;
};

} // namespace Tarvik
