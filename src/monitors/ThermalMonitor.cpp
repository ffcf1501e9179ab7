// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/ThermalMonitor.h"

namespace Tarvik {

ThermalMonitor::ThermalMonitor(ThermalState& source)
    : m_source(source)
{
    refresh();
    m_changes = m_source.changed.subscribe([this] {
        refresh();
        if (onChange)
            onChange();
    });
}

void ThermalMonitor::refresh()
{
    m_state = m_source.level();
    m_isHot = m_state == ThermalLevel::serious || m_state == ThermalLevel::critical;
    Q_EMIT stateChanged();
    Q_EMIT isHotChanged();
}

} // namespace Tarvik
