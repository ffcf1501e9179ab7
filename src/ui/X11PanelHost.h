// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PanelHost.h"

namespace Tarvik {

/// On X11, and through Xwayland: the window is put where it belongs, and is gone when another one gets the focus.
class X11PanelHost : public PanelHost {
    Q_OBJECT

public:
    explicit X11PanelHost(QQuickWindow& panel);

    bool isComposited() const override;
    /// `click` is in physical pixels.
    void open(QPoint click, const QString& activationToken) override;

private:
    void place();
    void insistOnPosition();

    QPoint m_click;
    QPoint m_position;
    int m_insistence = 0;
};

} // namespace Tarvik
