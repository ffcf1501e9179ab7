// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/placement/KeptWindow.h"

namespace Tarvik {

class Appearance;
class LidClosedMirror;

/// The window that introduces lid-closed mode, at the step where the user left it.
class OnboardingController : public KeptWindow {
    Q_OBJECT

public:
    /// What the window shows; must outlive it, as must the engine.
    struct Models {
        LidClosedMirror& lidClosed;
        Appearance& appearance;
        /// Where the theme "hicolor" with the application's icon is.
        QString iconDirectory;
    };

    OnboardingController(QQmlEngine& engine, const Models& models);
};

} // namespace Tarvik
