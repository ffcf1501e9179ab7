// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookMonitor.h"

#include "base/PlainText.h"
#include "core/HookSpec.h"
#include "core/Logging.h"
#include "platform/HookWire.h"

#include <QByteArray>
#include <QSet>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

constexpr Seconds defaultLifetime{900};
/// What the timer allows a lapse, and the least that it waits.
constexpr Seconds slack{1};

enum class Action { acquire, release, releaseAll };

/// A well-formed notification.
struct Announcement {
    Action action = Action::acquire;
    QString name;
    QString key;
    QString tool;
    Seconds lifetime{0};
    std::optional<QString> reason;
};

std::optional<QString> value(const QMap<QString, QString>& payload, const char* key)
{
    const auto found = payload.constFind(QLatin1String(key));
    return found == payload.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<Action> parseAction(const QString& name)
{
    if (name == QLatin1String(HookWire::acquireAction))
        return Action::acquire;
    if (name == QLatin1String(HookWire::releaseAction))
        return Action::release;
    if (name == QLatin1String(HookWire::releaseAllAction))
        return Action::releaseAll;
    return {};
}

/// Whether strtod(3) would read a decimal number here, without the blanks and the hexadecimal form that it also takes.
bool isDecimal(QByteArray text)
{
    if (text.startsWith('+') || text.startsWith('-'))
        text.remove(0, 1);
    constexpr QByteArrayView characters = "0123456789.eE+-";
    const bool hasOnlyDigits = std::ranges::all_of(text, [&](char each) { return characters.contains(each); });
    const QByteArray word = text.toLower();
    return (hasOnlyDigits && !text.isEmpty()) || word == "nan" || word == "inf" || word == "infinity";
}

/// Decimal text as seconds; what is not entirely a number has the default. Too large a number is endless.
Seconds parseLifetime(const std::optional<QString>& text)
{
    const QByteArray bytes = text.value_or(QString()).toUtf8();
    if (!isDecimal(bytes))
        return defaultLifetime;
    // Unlike Qt's own conversion this one tells a number beyond a double's range from what is no number.
    static const locale_t neutral = newlocale(LC_ALL_MASK, "C", nullptr);
    char* end = nullptr;
    const double seconds = strtod_l(bytes.constData(), &end, neutral);
    if (end != bytes.constData() + bytes.size())
        return defaultLifetime;
    return std::isnan(seconds) ? Seconds{0} : Seconds{std::max(seconds, 0.0)};
}

std::optional<Announcement> parse(const HookChannel::Payload& payload)
{
    if (!payload)
        return {};
    const QString name = value(*payload, HookWire::actionKey).value_or(QString());
    const auto action = parseAction(name);
    const auto key = value(*payload, HookWire::sessionKey);
    if (!action || (*action != Action::releaseAll && !key))
        return {};
    return Announcement{
        .action = *action,
        .name = name,
        .key = key.value_or(QString()),
        .tool = value(*payload, HookWire::toolKey).value_or(u"agent"_s),
        .lifetime = parseLifetime(value(*payload, HookWire::ttlKey)),
        .reason = value(*payload, HookWire::reasonKey),
    };
}

QString label(const QString& tool)
{
    const QByteArray id = tool.toUtf8();
    const HookSpec* spec = HookSpec::find({id.constData(), static_cast<std::size_t>(id.size())});
    if (spec == nullptr)
        return tool;
    return QString::fromUtf8(spec->label.data(), static_cast<qsizetype>(spec->label.size()));
}

} // namespace

HookMonitor::HookMonitor(HookChannel& channel, Clock& clock)
    : m_clock(clock)
    , m_announcements(channel.announced.subscribe([this](const HookChannel::Payload& payload) { handle(payload); }))
{
}

QList<HookSession> HookMonitor::sessions() const
{
    if (!m_sessions)
        m_sessions = m_registry.live(m_publishedAt);
    return *m_sessions;
}

QStringList HookMonitor::activeAgents() const
{
    QStringList labels;
    QSet<QString> known;
    for (const HookSession& session : m_registry.live(m_clock.now())) {
        if (!known.contains(session.tool)) {
            known.insert(session.tool);
            labels.append(label(session.tool));
        }
    }
    return labels;
}

void HookMonitor::handle(const HookChannel::Payload& payload)
{
    const auto announcement = parse(payload);
    if (!announcement) {
        qCInfo(logHooks, "hook notification ignored: unrecognised payload");
        return;
    }

    const TimePoint now = m_clock.now();
    Q_EMIT heard(announcement->tool, now);
    const auto apply = [&]() -> std::optional<bool> {
        const HookSession session{
            .key = announcement->key,
            .tool = announcement->tool,
            .reason = announcement->reason,
            .acquiredAt = now,
            .expiresAt = now + announcement->lifetime,
        };
        switch (announcement->action) {
        case Action::acquire:
            // Leases that are over are in nobody's way.
            if (!m_registry.hasRoomFor(session.key))
                handleExpiry();
            return m_registry.hasRoomFor(session.key) ? std::optional(m_registry.acquire(session)) : std::nullopt;
        case Action::release:
            return m_registry.release(announcement->key, now);
        case Action::releaseAll:
            return m_registry.releaseAll(now);
        }
        Q_UNREACHABLE();
    };
    const auto isChanged = apply();
    if (!isChanged) {
        qCWarning(logHooks, "hook notification ignored: too many sessions held");
        return;
    }
    qCInfo(logHooks,
        "hook %s from %s (%s); %ld session(s) held",
        qUtf8Printable(announcement->name),
        PlainText::printable(announcement->tool.toStdString()).c_str(),
        *isChanged ? "changed" : "no change",
        static_cast<long>(m_registry.liveCount(now)));
    publish(now, *isChanged);
}

void HookMonitor::handleExpiry()
{
    const TimePoint now = m_clock.now();
    if (!m_registry.dropLapsed(now)) {
        armExpiryTimer(now);
        return;
    }
    qCInfo(logHooks, "hook lease lapsed without a release; dropping it");
    publish(now, true);
}

void HookMonitor::publish(TimePoint now, bool isChanged)
{
    m_publishedAt = now;
    m_sessions.reset();
    armExpiryTimer(now);
    Q_EMIT sessionsChanged();
    if (isChanged && onChange)
        onChange();
}

void HookMonitor::armExpiryTimer(TimePoint now)
{
    const auto expiry = m_registry.earliestExpiry();
    if (!expiry) {
        m_expiryTimer.reset();
        return;
    }
    // A timer that waits for the same lapse stays: one that is set anew with every event would never fire in a stream
    // of events that is dense enough, and the lapsed leases would pile up.
    if (m_expiryTimer && m_expiryTimer->expiry == *expiry && now < m_expiryTimer->due)
        return;
    const Seconds delay = std::max(*expiry - now + slack, slack);
    auto timer = m_clock.after(delay, [this] {
        m_expiryTimer.reset();
        handleExpiry();
    });
    m_expiryTimer = ExpiryTimer{.expiry = *expiry, .due = now + delay, .timer = std::move(timer)};
}

} // namespace Tarvik
