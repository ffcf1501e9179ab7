// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/AwakeRules.h"

namespace Tarvik {

class AppSettings;
class Journal;
class Notifications;

/// Writes the journal and notifies when one decision differs from the one before. Reasons are compared by their key, so
/// that a battery that falls on is not a new pause.
class TransitionRecorder {
public:
    /// All must outlive the recorder.
    TransitionRecorder(const AppSettings& settings, Journal& journal, Notifications& notifications);

    /// `statusReason` is what the user is shown for this decision.
    void record(const AwakeRules::Decision& decision, const QString& statusReason);

private:
    void recordAwake(const QString& statusReason);
    void recordStopped(const QString& statusReason);
    void recordPaused(const BlockReason& reason);

    const AppSettings& m_settings;
    Journal& m_journal;
    Notifications& m_notifications;
    AwakeRules::Decision m_last;
};

} // namespace Tarvik
