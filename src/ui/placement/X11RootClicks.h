// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>

namespace Tarvik {

/// Tells, for as long as it exists, of clicks where the X display shows no window at all, as between the windows of a
/// desktop that lays none that one sees over the root window. They take the focus from nobody. By the raw events of the
/// X Input extension (2.1), which go to everybody and keep nobody else from the click. Nothing is told on other
/// platforms.
class X11RootClicks final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11RootClicks();
    ~X11RootClicks() override;
    X11RootClicks(const X11RootClicks&) = delete;
    X11RootClicks& operator=(const X11RootClicks&) = delete;

Q_SIGNALS:
    void clicked();

private:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void select(uint32_t events) const;
    bool isPointerOnRoot() const;

    /// Of the extension; 0 where there is none.
    uint8_t m_opcode = 0;
};

} // namespace Tarvik
