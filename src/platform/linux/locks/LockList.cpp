// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/LockList.h"

#include "platform/linux/inhibitors/ServiceLabels.h"

#include <unistd.h>

#include <algorithm>

namespace Tarvik::LockList {

using namespace Qt::StringLiterals;

namespace {

/// By which Tarvik and its helper take their locks.
const auto ownName = u"Tarvik"_s;

bool isOurs(const QString& who, std::optional<qint64> process)
{
    return who == ownName || process == getpid();
}

/// Another user may run a Tarvik, too; root's process may be our helper.
bool isOfUs(std::uint32_t user, const LockFacts& facts)
{
    constexpr std::uint32_t root = 0;
    return user == facts.ownUser || user == root;
}

bool concernsSleep(const LogindInhibitor& inhibitor)
{
    return (inhibitor.blocks || inhibitor.blocksWeakly) && std::ranges::any_of(inhibitor.what, [](const QString& what) {
        return what == "idle"_L1 || what == "sleep"_L1 || what == "handle-lid-switch"_L1;
    });
}

/// Session managers hold a lock of logind as long as somebody holds one of theirs against suspend. What it stands in
/// the way of, theirs do.
void takeOverMirrors(LockAnswers& answers)
{
    if (!answers.logind || !answers.sessionManager || !answers.sessionManagerProcess
        || std::ranges::none_of(*answers.sessionManager, &ListedLock::isMirrored))
        return;
    SleepLockEffects mirrored;
    answers.logind->removeIf([&](const LogindInhibitor& inhibitor) {
        if (inhibitor.process != *answers.sessionManagerProcess)
            return false;
        mirrored |= LockRules::effects(inhibitor, answers.facts);
        return true;
    });
    for (ListedLock& lock : *answers.sessionManager) {
        if (lock.isMirrored)
            lock.effects |= mirrored;
    }
}

/// PowerDevil lists those of logind, too.
void dropWhatLogindLists(LockAnswers& answers)
{
    if (!answers.facts.kde || !answers.logind || !answers.powerManager)
        return;
    for (const LogindInhibitor& inhibitor : *answers.logind) {
        const auto copy = std::ranges::find_if(*answers.powerManager,
            [&](const ListedLock& lock) { return lock.who == inhibitor.who && lock.why == inhibitor.why; });
        if (inhibitor.blocks && concernsSleep(inhibitor) && copy != answers.powerManager->end())
            answers.powerManager->erase(copy);
    }
}

/// The desktop's own daemons take the lid to act on it themselves.
void dropLidDaemons(LockAnswers& answers)
{
    if (!answers.logind)
        return;
    answers.logind->removeIf([&](const LogindInhibitor& inhibitor) {
        return answers.lidDaemonProcesses.contains(inhibitor.process)
            && LockRules::effects(inhibitor, answers.facts) == SleepLockEffects();
    });
}

void append(SleepLockList& list,
    const std::optional<QList<ListedLock>>& locks,
    const QString& service,
    const ProgramLabels& labels)
{
    for (const ListedLock& lock : locks.value_or(QList<ListedLock>())) {
        list.locks.append({.program = labels.label(lock.who, lock.process),
            .reason = lock.why,
            .service = service,
            .effects = lock.effects,
            .process = lock.process,
            .isOurs = isOurs(lock.who, lock.process)});
    }
}

void append(SleepLockList& list, const LogindInhibitor& inhibitor, const LockFacts& facts, const ProgramLabels& labels)
{
    if (!concernsSleep(inhibitor))
        return;
    list.locks.append({.program = labels.label(inhibitor.who, inhibitor.process),
        .reason = inhibitor.why,
        .service = ServiceLabels::logind,
        .effects = LockRules::effects(inhibitor, facts),
        .process = inhibitor.process,
        .isOurs = isOfUs(inhibitor.user, facts) && isOurs(inhibitor.who, inhibitor.process)});
}

} // namespace

SleepLockList of(LockAnswers answers, const ProgramLabels& labels)
{
    takeOverMirrors(answers);
    dropWhatLogindLists(answers);
    dropLidDaemons(answers);

    SleepLockList list;
    for (const LogindInhibitor& inhibitor : answers.logind.value_or(QList<LogindInhibitor>()))
        append(list, inhibitor, answers.facts, labels);
    append(list, answers.sessionManager, ServiceLabels::sessionManager, labels);
    append(list, answers.powerManager, answers.powerManagerLabel, labels);

    if (answers.hasLogind && !answers.logind)
        list.silentServices.append(ServiceLabels::logind);
    if (answers.hasSessionManager && !answers.sessionManager)
        list.silentServices.append(ServiceLabels::sessionManager);
    if (answers.hasPowerManager && !answers.powerManager)
        list.silentServices.append(answers.powerManagerLabel);
    list.silentServices += answers.silentServices;
    return list;
}

} // namespace Tarvik::LockList
