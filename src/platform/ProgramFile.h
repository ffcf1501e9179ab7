// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <functional>

namespace Tarvik {

/// The file of the running program, in whose place an upgrade puts another one.
class ProgramFile {
public:
    virtual ~ProgramFile() = default;

    /// There is a file in its place that is not the one that runs. Not so where there is none.
    virtual bool isReplaced() const = 0;

    /// Finds out whether what is in its place now would start: an upgrade may be half done, that of a library too.
    /// `done` is called once, possibly at once, unless the object goes before.
    virtual void check(std::function<void(bool wouldStart)> done) = 0;

    /// Something of what is installed with the program has changed, or is about to.
    Signal<void()> changed;
};

} // namespace Tarvik
