// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/SessionLifetime.h"
#include "platform/linux/session/DisplayConnection.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace Tarvik {

/// A graphical session, which lasts as long as its display server. Programs without a window are not ended at logout by
/// anybody else: logind leaves them alone, and so does the user's systemd as long as one of them runs. A session
/// without a display never ends.
class DisplaySessionLifetime final : public SessionLifetime {
public:
    struct Display {
        /// As in DISPLAY; empty without an X server.
        QByteArray x11;
        /// Absolute path of the Wayland compositor's socket; empty without one.
        QString waylandSocket;
    };

    /// `clock` must outlive the object.
    DisplaySessionLifetime(const Display& display, Clock& clock);

private:
    void followCompositor(const QString& socket);
    void end();

    Clock& m_clock;
    std::unique_ptr<DisplayConnection> m_connection;
    std::unique_ptr<Timer> m_secondLook;
};

} // namespace Tarvik
