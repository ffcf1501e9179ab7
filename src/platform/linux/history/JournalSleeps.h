// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SleepHistory.h"

#include <QByteArray>

#include <string>
#include <vector>

/// What systemd-sleep writes into the system's journal, systemd.journal-fields(7).
namespace Tarvik::JournalSleeps {

/// The program with its arguments that prints this boot's entries about the last `count` sleeps; `executable` is that
/// of journalctl(1).
std::vector<std::string> command(const std::string& executable, int count);

/// What it has printed, oldest first. Attempts that have failed are left out, and whatever cannot be read.
QList<PastSleep> in(const QByteArray& output);

} // namespace Tarvik::JournalSleeps
