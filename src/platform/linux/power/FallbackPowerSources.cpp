// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/FallbackPowerSources.h"

namespace Tarvik {

FallbackPowerSources::FallbackPowerSources(std::unique_ptr<PowerSources> preferred, Factory makeFallback)
    : m_preferred(std::move(preferred))
    , m_makeFallback(std::move(makeFallback))
{
    m_preferred->onChange = [this] {
        choose();
        notify();
    };
    choose();
}

std::optional<PowerSourcesSnapshot> FallbackPowerSources::snapshot() const
{
    auto known = m_preferred->snapshot();
    return known || !m_fallback ? known : m_fallback->snapshot();
}

void FallbackPowerSources::choose()
{
    if (m_preferred->snapshot()) {
        m_fallback.reset();
    } else if (!m_fallback) {
        m_fallback = m_makeFallback();
        m_fallback->onChange = [this] { notify(); };
    }
}

void FallbackPowerSources::notify() const
{
    if (onChange)
        onChange();
}

} // namespace Tarvik
