// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/Onboarding.h"

#include "core/SettingsStore.h"

#include <QString>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto onboardingCompleteKey = u"clamshellOnboardingComplete"_s;

} // namespace

Onboarding::Onboarding(SettingsStore& store, std::function<void()> show)
    : m_store(store)
    , m_show(std::move(show))
{
}

void Onboarding::offer()
{
    if (m_store.boolean(onboardingCompleteKey).value_or(false) || std::exchange(m_isActive, true))
        return;
    m_show();
}

void Onboarding::finish()
{
    m_isActive = false;
    m_store.setBoolean(onboardingCompleteKey, true);
}

} // namespace Tarvik
