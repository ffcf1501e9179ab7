// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace Tarvik {

enum class PowerAssertionType {
    preventUserIdleSystemSleep,
    preventUserIdleDisplaySleep,
};

/// "PreventUserIdleSystemSleep" or "PreventUserIdleDisplaySleep".
QString powerAssertionTypeName(PowerAssertionType type);

/// One assertion: wanted from its creation to its destruction, and ended by the system when the process ends.
class PowerAssertion {
public:
    virtual ~PowerAssertion() = default;

    /// Nothing holds the assertion and nothing will by itself: the code of the last failure (a positive errno).
    /// Whoever still wants the assertion creates it again.
    virtual std::optional<int> failure() const = 0;
};

/// One of the means by which an assertion is held, for people to read.
struct PowerAssertionHold {
    PowerAssertionType type;
    /// Who holds it off: "logind", "session manager", "KDE power management", ...
    QString service;
    /// What was asked of the service, in its own words ("idle", "suspend inhibitor", ...).
    QString what;
    /// The service has confirmed it.
    bool effective = false;

    bool operator==(const PowerAssertionHold&) const = default;
};

/// Keeps the system, or the display, from going to sleep for lack of user activity.
class PowerAssertions {
public:
    virtual ~PowerAssertions() = default;

    /// Takes an assertion under the given name, in the background. Failing is told by the assertion's `failure()` and
    /// by `failed` below.
    [[nodiscard]] virtual std::unique_ptr<PowerAssertion> create(PowerAssertionType type, const QString& name) = 0;

    /// What is held at this moment.
    virtual QList<PowerAssertionHold> holds() const = 0;

    /// An assertion could not be taken; the code is a positive errno.
    Signal<void(PowerAssertionType, int code)> failed;

    /// `holds()` may have changed.
    Signal<void()> holdsChanged;
};

} // namespace Tarvik
