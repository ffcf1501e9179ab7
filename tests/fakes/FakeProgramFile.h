// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProgramFile.h"

#include <utility>

namespace Tarvik {

/// A program that is replaced when a test says so.
class FakeProgramFile final : public ProgramFile {
public:
    bool isReplaced() const override { return replaced; }

    void check(std::function<void(bool wouldStart)> done) override
    {
        ++checks;
        m_done = std::move(done);
    }

    /// A file is put in its place, or taken away.
    void change(bool isReplacedNow)
    {
        replaced = isReplacedNow;
        changed();
    }

    bool isBeingChecked() const { return m_done != nullptr; }

    void answer(bool wouldStart) { std::exchange(m_done, {})(wouldStart); }

    bool replaced = false;
    int checks = 0;

private:
    std::function<void(bool wouldStart)> m_done;
};

} // namespace Tarvik
