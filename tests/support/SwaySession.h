// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

namespace Tarvik {

/// A Wayland compositor of its own until the end of the object.
class SwaySession {
public:
    SwaySession()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("/usr/bin/python3"),
            {QStringLiteral(SWAY),
                QStringLiteral("sh"),
                QStringLiteral("-c"),
                QStringLiteral("echo $WAYLAND_DISPLAY; exec cat")});
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) { }
        m_socket = QString::fromLocal8Bit(m_process.readLine()).trimmed();
    }
    ~SwaySession() { end(); }
    SwaySession(const SwaySession&) = delete;
    SwaySession& operator=(const SwaySession&) = delete;

    /// The absolute path; empty when it did not come up.
    const QString& socket() const { return m_socket; }

    void end()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
    QString m_socket;
};

} // namespace Tarvik
