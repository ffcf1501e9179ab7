// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/FallbackPowerSources.h"

namespace Tarvik {

FallbackPowerSources::FallbackPowerSources(std::unique_ptr<PowerSources> preferred, Factory makeFallback)
    : m_preferred(std::move(preferred))
    , m_makeFallback(std::move(makeFallback))
{
    m_preferredChanges = m_preferred->changed.subscribe([this] {
        choose();
        changed();
    });
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
        m_fallbackChanges = m_fallback->changed.subscribe([this] { changed(); });
    }
}

} // namespace Tarvik
