// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ThermalState.h"

#include <QObject>

#include <functional>

namespace Tarvik {

/// Whether the machine runs hot. Every write of a field emits its signal, changed or not.
class ThermalMonitor final : public QObject {
    Q_OBJECT

public:
    /// Reads the state once and listens from then on. `source` must outlive the monitor.
    explicit ThermalMonitor(ThermalState& source);

    /// The state is serious or critical.
    bool isHot() const { return m_isHot; }
    ThermalLevel state() const { return m_state; }

    /// Reads the state anew and publishes it.
    void refresh();

    /// Called after each notification of the system, whether or not the state changed.
    std::function<void()> onChange;

Q_SIGNALS:
    void isHotChanged();
    void stateChanged();

private:
    ThermalState& m_source;
    bool m_isHot = false;
    ThermalLevel m_state = ThermalLevel::nominal;
    Subscription m_changes;
};

} // namespace Tarvik
