// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ProcessTable.h"

#include <utility>

namespace Tarvik {

/// A process table whose text is `output`. A read is answered at once or, when `answersLater`, by finish() or, unless
/// it `hangs`, when it is waited for.
class FakeProcessTable final : public ProcessTable {
public:
    void read(Receiver receiver) override
    {
        ++reads;
        pending = std::move(receiver);
        if (!answersLater)
            finish();
    }

    bool wait(Seconds) override
    {
        if (!hangs)
            finish();
        return !hangs;
    }

    void finish() { std::exchange(pending, nullptr)(output); }

    QByteArray output;
    bool answersLater = false;
    bool hangs = false;
    int reads = 0;
    Receiver pending;
};

} // namespace Tarvik
