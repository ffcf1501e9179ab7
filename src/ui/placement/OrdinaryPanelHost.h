// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/PanelHost.h"

namespace Tarvik {

/// Where nobody but the desktop can place windows: a small ordinary window. It lies anywhere, so it stays until it is
/// closed; one that came and went like a menu, far from the click, would be lost each time the user looks at something
/// else.
class OrdinaryPanelHost : public PanelHost {
    Q_OBJECT

public:
    explicit OrdinaryPanelHost(QQuickWindow& panel);

    bool isComposited() const override { return false; }
    bool isTransient() const override { return false; }
    void open(const TrayPoint& tray, const QString& activationToken) override;
};

} // namespace Tarvik
