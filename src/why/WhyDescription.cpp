// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "why/WhyDescription.h"

#include "core/TerminalText.h"
#include "why/WhyRules.h"
#include "why/WhyText.h"

#include <QCoreApplication>
#include <QJsonArray>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik::WhyDescription {

namespace {

constexpr std::array allEffects{
    SleepLockEffect::idleSleep, SleepLockEffect::idleDisplay, SleepLockEffect::sleep, SleepLockEffect::lid};

QString effectText(SleepLockEffect effect)
{
    switch (effect) {
    case SleepLockEffect::idleSleep:
        return QCoreApplication::translate("WhyDescription", "sleep when idle");
    case SleepLockEffect::idleDisplay:
        return QCoreApplication::translate("WhyDescription", "displays off when idle");
    case SleepLockEffect::sleep:
        return QCoreApplication::translate("WhyDescription", "every sleep");
    case SleepLockEffect::lid:
        return QCoreApplication::translate("WhyDescription", "sleep when the lid is closed");
    }
    Q_UNREACHABLE();
}

QString effectsText(SleepLockEffects effects)
{
    QStringList texts;
    for (const SleepLockEffect effect : allEffects) {
        if (effects.testFlag(effect))
            texts.append(effectText(effect));
    }
    return texts.isEmpty() ? QCoreApplication::translate("WhyDescription", "nothing on this desktop")
                           : WhyText::listed(texts);
}

QString byService(const QString& what, const QString& service)
{
    return QCoreApplication::translate("WhyDescription", "%1 (%2)").arg(what, service);
}

QString holdText(const WhyReport& report, const PowerAssertionHold& hold)
{
    const QString text = byService(
        effectText(hold.type == PowerAssertionType::preventUserIdleSystemSleep ? SleepLockEffect::idleSleep
                                                                               : SleepLockEffect::idleDisplay),
        hold.service);
    if (!hold.effective)
        return QCoreApplication::translate("WhyDescription", "%1, not confirmed").arg(text);
    return WhyRules::isEffective(report, hold)
        ? text
        : QCoreApplication::translate("WhyDescription", "%1, without effect on this desktop").arg(text);
}

/// What Tarvik holds for an open lid as for a closed one, and what its helper holds.
QStringList ownHolds(const WhyReport& report)
{
    QStringList texts;
    for (const PowerAssertionHold& hold : report.holds)
        texts.append(holdText(report, hold));
    for (const SleepLock& lock : report.locks.locks) {
        if (lock.isOurs && lock.effects.testFlag(SleepLockEffect::lid))
            texts.append(byService(effectsText(lock.effects), lock.service));
    }
    return texts.isEmpty() ? QStringList(QCoreApplication::translate("WhyDescription", "nothing")) : texts;
}

QString lockText(const SleepLock& lock)
{
    const QString effects = byService(effectsText(lock.effects), lock.service);
    const QString program = WhyText::shortened(lock.program);
    return lock.reason.isEmpty() ? QCoreApplication::translate("WhyDescription", "%1: %2").arg(program, effects)
                                 : QCoreApplication::translate("WhyDescription", "%1: %2: %3")
                                       .arg(program, effects, WhyText::shortened(lock.reason));
}

QStringList othersHolds(const WhyReport& report)
{
    QStringList texts;
    for (const SleepLock& lock : WhyRules::othersLocks(report))
        texts.append(lockText(lock));
    return texts.isEmpty() ? QStringList(QCoreApplication::translate("WhyDescription", "nothing")) : texts;
}

QStringList idleRules(const WhyReport& report)
{
    QStringList texts;
    for (const IdleSleepRule& rule : report.idleRules)
        texts.append(WhyText::idleRule(rule));
    return texts;
}

QStringList hooks(const WhyReport& report)
{
    QStringList texts;
    for (const WhyHook& hook : report.hooks) {
        texts.append(hook.lastEvent
                ? QCoreApplication::translate("WhyDescription", "%1, last event %2")
                      .arg(hook.label, WhyText::moment(*hook.lastEvent, report.now))
                : QCoreApplication::translate("WhyDescription", "%1, no event yet").arg(hook.label));
    }
    return texts;
}

QString sleepText(const WhyReport& report, const PastSleep& sleep)
{
    return sleep.until ? QCoreApplication::translate("WhyDescription", "The computer slept until %1")
                             .arg(WhyText::moment(*sleep.until, report.now))
                       : QCoreApplication::translate("WhyDescription", "The computer went to sleep");
}

/// Changes of Tarvik's beside sleeps, oldest first.
QStringList lately(const WhyReport& report)
{
    constexpr qsizetype most = 12;
    QList<std::pair<TimePoint, QString>> events;
    for (const JournalEntry& entry : report.journal)
        events.prepend({entry.at, QCoreApplication::translate("WhyDescription", "Tarvik: %1").arg(entry.reason)});
    for (const PastSleep& sleep : report.sleeps.value_or(QList<PastSleep>()))
        events.append({sleep.from, sleepText(report, sleep)});
    std::ranges::stable_sort(events, {}, &std::pair<TimePoint, QString>::first);
    QStringList lines;
    for (const auto& [at, what] : events.mid(std::max<qsizetype>(events.size() - most, 0)))
        lines.append(WhyText::moment(at, report.now) + u"  "_s + WhyText::shortened(what));
    return lines;
}

QJsonValue toJson(const std::optional<TimePoint>& at)
{
    return at ? QJsonValue(at->time_since_epoch().count()) : QJsonValue();
}

QString actionName(IdleSleepAction action)
{
    switch (action) {
    case IdleSleepAction::nothing:
        return u"nothing"_s;
    case IdleSleepAction::suspend:
        return u"suspend"_s;
    case IdleSleepAction::hibernate:
        return u"hibernate"_s;
    case IdleSleepAction::other:
        return u"other"_s;
    }
    Q_UNREACHABLE();
}

QString effectName(SleepLockEffect effect)
{
    switch (effect) {
    case SleepLockEffect::idleSleep:
        return u"idleSleep"_s;
    case SleepLockEffect::idleDisplay:
        return u"idleDisplay"_s;
    case SleepLockEffect::sleep:
        return u"sleep"_s;
    case SleepLockEffect::lid:
        return u"lid"_s;
    }
    Q_UNREACHABLE();
}

template <typename Element>
QJsonArray arrayOf(const QList<Element>& elements, QJsonObject (*toObject)(const Element& element))
{
    QJsonArray array;
    for (const Element& element : elements)
        array.append(toObject(element));
    return array;
}

QJsonObject lockObject(const SleepLock& lock)
{
    QJsonArray effects;
    for (const SleepLockEffect effect : allEffects) {
        if (lock.effects.testFlag(effect))
            effects.append(effectName(effect));
    }
    return {{u"program"_s, lock.program},
        {u"reason"_s, lock.reason},
        {u"service"_s, lock.service},
        {u"effects"_s, effects},
        {u"process"_s, lock.process ? QJsonValue(*lock.process) : QJsonValue()},
        {u"isOurs"_s, lock.isOurs}};
}

QJsonObject ruleObject(const IdleSleepRule& rule)
{
    return {{u"service"_s, rule.service},
        {u"action"_s, rule.action ? QJsonValue(actionName(*rule.action)) : QJsonValue()},
        {u"afterSeconds"_s, rule.after ? QJsonValue(static_cast<double>(rule.after->count())) : QJsonValue()}};
}

QJsonObject hookObject(const WhyHook& hook)
{
    return {{u"id"_s, hook.id}, {u"label"_s, hook.label}, {u"lastEvent"_s, toJson(hook.lastEvent)}};
}

QJsonObject entryObject(const JournalEntry& entry)
{
    return {{u"at"_s, toJson(entry.at)}, {u"kind"_s, journalKindName(entry.kind)}, {u"reason"_s, entry.reason}};
}

QJsonObject sleepObject(const PastSleep& sleep)
{
    return {{u"from"_s, toJson(sleep.from)}, {u"until"_s, toJson(sleep.until)}};
}

QJsonObject tarvikObject(const WhyReport& report)
{
    QJsonArray holds;
    for (const PowerAssertionHold& hold : report.holds) {
        holds.append(QJsonObject{{u"type"_s, powerAssertionTypeName(hold.type)},
            {u"service"_s, hold.service},
            {u"what"_s, hold.what},
            {u"confirmed"_s, hold.effective},
            {u"effective"_s, WhyRules::isEffective(report, hold)}});
    }
    return {{u"isAwake"_s, report.isAwake},
        {u"keepsAwake"_s, WhyRules::isKeptAwakeByTarvik(report)},
        {u"reason"_s, report.statusReason},
        {u"activeAgents"_s, QJsonArray::fromStringList(report.active)},
        {u"sessionEnd"_s, toJson(report.sessionEnd)},
        {u"runsWithLidClosed"_s, report.runsWithLidClosed},
        {u"holds"_s, holds}};
}

} // namespace

QString text(const WhyReport& report)
{
    TerminalText::Table table;
    table.add(QCoreApplication::translate("WhyDescription", "Tarvik holds off"), ownHolds(report));
    table.add(QCoreApplication::translate("WhyDescription", "Others hold off"), othersHolds(report));
    table.add(QCoreApplication::translate("WhyDescription", "Do not tell"), report.locks.silentServices);
    table.add(QCoreApplication::translate("WhyDescription", "When idle"), idleRules(report));
    table.add(QCoreApplication::translate("WhyDescription", "Hooks"), hooks(report));
    table.add(QCoreApplication::translate("WhyDescription", "Lately"), lately(report));
    return TerminalText::joined(QStringList(WhyText::awake(report)) + WhyText::remarks(report)
        + QStringList{WhyText::slept(report), QString()} + table.lines());
}

QString json(const WhyReport& report)
{
    return TerminalText::json({{u"isRunning"_s, true},
        {u"isKeptAwake"_s, WhyRules::isKeptAwake(report)},
        {u"whyAwake"_s, WhyText::awake(report)},
        {u"remarks"_s, QJsonArray::fromStringList(WhyText::remarks(report))},
        {u"whySlept"_s, WhyText::slept(report)},
        {u"tarvik"_s, tarvikObject(report)},
        {u"locks"_s, arrayOf(report.locks.locks, lockObject)},
        {u"silentServices"_s, QJsonArray::fromStringList(report.locks.silentServices)},
        {u"idleSleep"_s, arrayOf(report.idleRules, ruleObject)},
        {u"hooks"_s, arrayOf(report.hooks, hookObject)},
        {u"journal"_s, arrayOf(report.journal, entryObject)},
        {u"sleeps"_s, report.sleeps ? QJsonValue(arrayOf(*report.sleeps, sleepObject)) : QJsonValue()}});
}

} // namespace Tarvik::WhyDescription
