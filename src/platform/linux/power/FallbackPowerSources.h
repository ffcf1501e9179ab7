// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"

#include <functional>
#include <memory>

namespace Tarvik {

/// The preferred sources, and others in their place for as long as those cannot tell. As the others can be read at
/// once, there is a true answer from the start, before a service has had time to give one.
class FallbackPowerSources final : public PowerSources {
public:
    using Factory = std::function<std::unique_ptr<PowerSources>()>;

    /// The fallback is made when it is needed and destroyed when it no longer is.
    FallbackPowerSources(std::unique_ptr<PowerSources> preferred, Factory makeFallback);

    std::optional<PowerSourcesSnapshot> snapshot() const override;

private:
    void choose();

    std::unique_ptr<PowerSources> m_preferred;
    Factory m_makeFallback;
    std::unique_ptr<PowerSources> m_fallback;
    Subscription m_preferredChanges;
    Subscription m_fallbackChanges;
};

} // namespace Tarvik
