// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/programs/StartedProgram.h"
#include "platform/linux/sleep/DisplaySwitch.h"

#include <memory>

namespace Tarvik {

/// By KDE's command kscreen-doctor, after which activity switches on.
class CommandDisplaySwitch final : public DisplaySwitch {
public:
    CommandDisplaySwitch() = default;
    ~CommandDisplaySwitch() override;

    CommandDisplaySwitch(const CommandDisplaySwitch&) = delete;
    CommandDisplaySwitch& operator=(const CommandDisplaySwitch&) = delete;

    void switchOff(Receiver done) override;
    void switchOn() override;

private:
    std::unique_ptr<StartedProgram> m_program;
};

} // namespace Tarvik
