// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Tarvik {

class SettingsStore;

/// When the introduction to lid-closed mode shows itself: once in a run of the application, until it has been read to
/// the end once.
class Onboarding {
public:
    /// `show` shows the window. `store` must outlive the object.
    Onboarding(SettingsStore& store, std::function<void()> show);

    /// Shows the introduction unless it has been shown in this run or read to the end.
    void offer();

    /// The user has read it to the end.
    void finish();

private:
    SettingsStore& m_store;
    std::function<void()> m_show;
    /// Stays true when the window is merely closed, so that it is not offered again before the next start.
    bool m_isActive = false;
};

} // namespace Tarvik
