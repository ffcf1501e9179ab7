// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/TransitionRecorder.h"

#include "core/AppSettings.h"
#include "engine/Notifications.h"
#include "journal/Journal.h"

#include <QCoreApplication>

namespace Tarvik {

namespace {

QString keyOf(const AwakeRules::Decision& decision)
{
    return decision.reason ? decision.reason->key() : QString();
}

} // namespace

TransitionRecorder::TransitionRecorder(const AppSettings& settings, Journal& journal, Notifications& notifications)
    : m_settings(settings)
    , m_journal(journal)
    , m_notifications(notifications)
{
}

void TransitionRecorder::record(const AwakeRules::Decision& decision, const QString& statusReason)
{
    if (decision.awake != m_last.awake || keyOf(decision) != keyOf(m_last)) {
        if (decision.reason)
            recordPaused(*decision.reason);
        else if (decision.awake)
            recordAwake(statusReason);
        else if (m_last.awake)
            recordStopped(statusReason);
    }
    m_last = decision;
}

void TransitionRecorder::recordAwake(const QString& statusReason)
{
    const bool wasPaused = m_last.reason.has_value();
    m_journal.record(wasPaused ? Journal::Entry::Kind::resumed : Journal::Entry::Kind::on, statusReason);
    if (m_settings.notifyOnToggle())
        m_notifications.post(
            QCoreApplication::translate("Notifications", "Tarvik is keeping your Mac awake"), statusReason);
}

void TransitionRecorder::recordStopped(const QString& statusReason)
{
    m_journal.record(Journal::Entry::Kind::off, statusReason);
    if (m_settings.notifyOnToggle())
        m_notifications.post(
            QCoreApplication::translate("Notifications", "Tarvik stopped keeping your Mac awake"), statusReason);
}

void TransitionRecorder::recordPaused(const BlockReason& reason)
{
    m_journal.record(Journal::Entry::Kind::paused, reason.pauseTitle());
    if (m_settings.notifyOnPause())
        m_notifications.post(QCoreApplication::translate("Notifications", "Tarvik paused"), reason.pauseTitle());
}

} // namespace Tarvik
