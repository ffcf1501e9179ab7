// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/StatusText.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace Tarvik::StatusText {

namespace {

QString counted(qsizetype count, const QString& noun)
{
    return QString::number(count) + u' ' + noun + (count == 1 ? QString() : u"s"_s);
}

QString activitySummary(qsizetype agentCount, qsizetype appCount)
{
    QStringList parts;
    if (agentCount > 0)
        parts.append(counted(agentCount, u"agent"_s));
    if (appCount > 0)
        parts.append(counted(appCount, u"app"_s));
    return parts.join(u", "_s);
}

QString minutesText(int minutes)
{
    return QString::number(minutes) + u" min left"_s;
}

bool speaksOfBattery(const std::optional<BlockReason>& reason)
{
    return reason && (reason->kind == BlockReason::Kind::onBattery || reason->kind == BlockReason::Kind::lowBattery);
}

} // namespace

std::optional<int> minutesLeft(std::optional<TimePoint> end, TimePoint now)
{
    if (!end || *end <= now)
        return {};
    const double minutes = std::trunc((*end - now).count() / 60) + 1;
    return minutes < std::numeric_limits<int>::max() ? static_cast<int>(minutes) : std::numeric_limits<int>::max();
}

QString title(const TitleInputs& inputs)
{
    if (!inputs.isEnabled)
        return u"Off"_s;
    if (inputs.isPaused)
        return u"Paused"_s;
    return inputs.isAwake ? u"Awake"_s : u"Watching"_s;
}

QString reason(const ReasonInputs& inputs)
{
    if (inputs.reason)
        return inputs.reason->pauseTitle();
    if (!inputs.awake)
        return u"Dozing — nothing to watch"_s;
    if (inputs.timedSessionActive)
        return inputs.minutesLeft ? u"Awake — "_s + minutesText(*inputs.minutesLeft) : u"Awake — timed"_s;
    const QString summary = activitySummary(inputs.agentCount, inputs.appCount);
    return summary.isEmpty() ? u"Awake"_s : u"Awake · "_s + summary;
}

QString subtitle(const SubtitleInputs& inputs)
{
    constexpr qsizetype named = 2;
    if (!inputs.isEnabled)
        return u"Not watching"_s;
    if (inputs.reason)
        return inputs.reason->shortDescription();
    if (!inputs.activeList.isEmpty()) {
        const QString first = inputs.activeList.mid(0, named).join(u", "_s);
        const qsizetype others = inputs.activeList.size() - named;
        return others > 0 ? first + u" +"_s + QString::number(others) + u" more"_s : first;
    }
    return inputs.timedSessionActive ? u"Timed session"_s : u"Nothing running to keep awake for"_s;
}

QString details(const DetailsInputs& inputs)
{
    QStringList parts;
    if (inputs.hasBattery && inputs.batteryPercent && !speaksOfBattery(inputs.reason)) {
        parts.append(
            (inputs.isOnAC ? u"charging "_s : u"on battery "_s) + QString::number(*inputs.batteryPercent) + u'%');
    }
    if (inputs.isHot && inputs.reason != BlockReason::tooHot())
        parts.append(u"running "_s + thermalWord(inputs.thermalState));
    if (inputs.lidClosedMode)
        parts.append(u"lid closed"_s);
    if (inputs.minutesLeft)
        parts.append(minutesText(*inputs.minutesLeft));
    return parts.join(u" · "_s);
}

QString thermalWord(int thermalState)
{
    switch (thermalState) {
    case 0:
        return u"normal"_s;
    case 1:
        return u"warm"_s;
    case 2:
        return u"hot"_s;
    case 3:
        return u"very hot"_s;
    default:
        return u"unknown"_s;
    }
}

} // namespace Tarvik::StatusText
