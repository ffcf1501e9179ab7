// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

namespace Tarvik {

/// Sends every log line to the systemd journal, with its area as a field of its own, where standard error is connected
/// to the journal (JOURNAL_STREAM, see systemd.exec(5)), and to standard error otherwise.
void installLogSink();

} // namespace Tarvik
