// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/ThermalMonitor.h"

namespace Tarvik {

ThermalMonitor::ThermalMonitor(ThermalState& source)
    : m_source(source)
{
    refresh();
    m_source.onChange = [this] {
        refresh();
        if (onChange)
            onChange();
    };
}

ThermalMonitor::~ThermalMonitor()
{
    m_source.onChange = nullptr;
}

void ThermalMonitor::refresh()
{
    m_state = m_source.level();
    m_isHot = m_state == ThermalLevel::serious || m_state == ThermalLevel::critical;
    Q_EMIT stateChanged();
    Q_EMIT isHotChanged();
}

} // namespace Tarvik
