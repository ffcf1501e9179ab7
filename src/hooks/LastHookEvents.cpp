// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/LastHookEvents.h"

#include "core/HookSpec.h"
#include "core/SettingsStore.h"
#include "hooks/HookMonitor.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto key = u"lastHookEvents"_s;

/// An agent at work tells of itself many times a minute.
constexpr Seconds storingPeriod{15.0 * 60};

bool isHookable(const QString& id)
{
    return HookSpec::find(id.toStdString()) != nullptr;
}

/// An object of seconds since 1970-01-01 00:00 UTC by the ids of agents. What is none is passed over.
QMap<QString, TimePoint> read(const SettingsStore& store)
{
    QMap<QString, TimePoint> times;
    const QJsonObject stored = QJsonDocument::fromJson(store.data(key).value_or(QByteArray())).object();
    for (auto each = stored.begin(); each != stored.end(); ++each) {
        if (const double seconds = each->toDouble(); seconds > 0 && isHookable(each.key()))
            times.insert(each.key(), TimePoint(Seconds(seconds)));
    }
    return times;
}

} // namespace

LastHookEvents::LastHookEvents(HookMonitor& monitor, SettingsStore& store)
    : m_store(store)
    , m_times(read(store))
    , m_stored(m_times)
{
    connect(&monitor, &HookMonitor::heard, this, &LastHookEvents::note);
}

LastHookEvents::~LastHookEvents()
{
    save();
}

void LastHookEvents::forget(const QString& id)
{
    if (m_times.remove(id) == 0)
        return;
    save();
    Q_EMIT timesChanged();
}

void LastHookEvents::note(const QString& tool, TimePoint at)
{
    if (!isHookable(tool))
        return;
    m_times[tool] = at;
    const auto stored = m_stored.constFind(tool);
    // One that is later was stored under a clock that was wrong.
    if (stored == m_stored.constEnd() || at < *stored || at - *stored >= storingPeriod)
        save();
    Q_EMIT timesChanged();
}

void LastHookEvents::save()
{
    if (m_times == m_stored)
        return;
    m_stored = m_times;
    QJsonObject object;
    for (auto each = m_times.constBegin(); each != m_times.constEnd(); ++each)
        object[each.key()] = each->time_since_epoch().count();
    m_store.setData(key, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace Tarvik
