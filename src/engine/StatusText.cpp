// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/StatusText.h"

#include <QCoreApplication>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace Tarvik::StatusText {

namespace {

// English needs no translation, so its plurals are texts of their own; other languages have as many forms of each as
// they need.
QString agentsText(int count)
{
    return count == 1 ? QCoreApplication::translate("StatusText", "%n agent", nullptr, count)
                      : QCoreApplication::translate("StatusText", "%n agents", nullptr, count);
}

QString appsText(int count)
{
    return count == 1 ? QCoreApplication::translate("StatusText", "%n app", nullptr, count)
                      : QCoreApplication::translate("StatusText", "%n apps", nullptr, count);
}

/// One or two of something.
QString listed(const QStringList& names)
{
    return names.size() == 2 ? QCoreApplication::translate("StatusText", "%1, %2").arg(names[0], names[1])
                             : names.join(QString());
}

QString activitySummary(qsizetype agentCount, qsizetype appCount)
{
    QStringList parts;
    if (agentCount > 0)
        parts.append(agentsText(static_cast<int>(agentCount)));
    if (appCount > 0)
        parts.append(appsText(static_cast<int>(appCount)));
    return listed(parts);
}

QString minutesText(int minutes)
{
    return QCoreApplication::translate("StatusText", "%n min left", nullptr, minutes);
}

QString batteryText(bool isOnAC, int percent)
{
    return (isOnAC ? QCoreApplication::translate("StatusText", "charging %1%")
                   : QCoreApplication::translate("StatusText", "on battery %1%"))
        .arg(percent);
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
        return QCoreApplication::translate("StatusText", "Off");
    if (inputs.isPaused)
        return QCoreApplication::translate("StatusText", "Paused");
    return inputs.isAwake ? QCoreApplication::translate("StatusText", "Awake")
                          : QCoreApplication::translate("StatusText", "Watching");
}

QString reason(const ReasonInputs& inputs)
{
    if (inputs.reason)
        return inputs.reason->pauseTitle();
    if (!inputs.awake)
        return QCoreApplication::translate("StatusText", "Dozing — nothing to watch");
    if (inputs.timedSessionActive) {
        return inputs.minutesLeft
            ? QCoreApplication::translate("StatusText", "Awake — %1").arg(minutesText(*inputs.minutesLeft))
            : QCoreApplication::translate("StatusText", "Awake — timed");
    }
    const QString summary = activitySummary(inputs.agentCount, inputs.appCount);
    return summary.isEmpty() ? QCoreApplication::translate("StatusText", "Awake")
                             : QCoreApplication::translate("StatusText", "Awake · %1").arg(summary);
}

QString subtitle(const SubtitleInputs& inputs)
{
    constexpr qsizetype named = 2;
    if (!inputs.isEnabled)
        return QCoreApplication::translate("StatusText", "Not watching");
    if (inputs.reason)
        return inputs.reason->shortDescription();
    if (!inputs.activeList.isEmpty()) {
        const QString first = listed(inputs.activeList.mid(0, named));
        const int others = static_cast<int>(inputs.activeList.size() - named);
        return others > 0 ? QCoreApplication::translate("StatusText", "%1 +%n more", nullptr, others).arg(first)
                          : first;
    }
    return inputs.timedSessionActive ? QCoreApplication::translate("StatusText", "Timed session")
                                     : QCoreApplication::translate("StatusText", "Nothing running to keep awake for");
}

QString details(const DetailsInputs& inputs)
{
    QStringList parts;
    if (inputs.hasBattery && inputs.batteryPercent && !speaksOfBattery(inputs.reason))
        parts.append(batteryText(inputs.isOnAC, *inputs.batteryPercent));
    if (inputs.isHot && inputs.reason != BlockReason::tooHot())
        parts.append(QCoreApplication::translate("StatusText", "running %1").arg(thermalWord(inputs.thermalState)));
    if (inputs.lidClosedMode)
        parts.append(QCoreApplication::translate("StatusText", "lid closed"));
    if (inputs.minutesLeft)
        parts.append(minutesText(*inputs.minutesLeft));
    return parts.join(u" · "_s);
}

QString thermalWord(int thermalState)
{
    switch (thermalState) {
    case 0:
        return QCoreApplication::translate("StatusText", "normal");
    case 1:
        return QCoreApplication::translate("StatusText", "warm");
    case 2:
        return QCoreApplication::translate("StatusText", "hot");
    case 3:
        return QCoreApplication::translate("StatusText", "very hot");
    default:
        return QCoreApplication::translate("StatusText", "unknown");
    }
}

} // namespace Tarvik::StatusText
