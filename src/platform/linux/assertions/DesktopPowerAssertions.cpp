// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/DesktopPowerAssertions.h"

#include <QEventLoop>
#include <QPointer>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace Tarvik {

/// The holds of one assertion, kept as the rules want them.
class DesktopPowerAssertions::Assertion final : public PowerAssertion {
public:
    Assertion(DesktopPowerAssertions& owner, PowerAssertionType type, QString name)
        : m_owner(&owner)
        , m_type(type)
        , m_name(std::move(name))
    {
        m_owner->m_assertions.push_back(this);
        apply({});
    }

    ~Assertion() override
    {
        if (m_owner == nullptr)
            return;
        std::erase(m_owner->m_assertions, this);
        m_holds.clear();
        if (m_type == PowerAssertionType::preventUserIdleSystemSleep)
            m_owner->rearm(m_name);
        m_owner->schedulePublishing();
    }

    Assertion(const Assertion&) = delete;
    Assertion& operator=(const Assertion&) = delete;

    PowerAssertionType type() const { return m_type; }

    std::optional<int> failure() const override
    {
        if (m_owner != nullptr && !m_owner->m_watch.isKnown())
            return std::nullopt;
        int lastError = EHOSTUNREACH;
        for (const Hold& hold : m_holds) {
            if (hold.inhibitor->state() != Inhibitor::State::refused)
                return std::nullopt;
            lastError = hold.inhibitor->error();
        }
        return lastError;
    }

    /// True once in the life of an assertion, when it has failed.
    bool takeFailureNews() { return failure() && !std::exchange(m_failureTold, true); }

    void appendHolds(QList<PowerAssertionHold>& list) const
    {
        for (const Hold& hold : m_holds) {
            list.append({.type = m_type,
                .service = DesktopHolds::serviceLabel(hold.kind),
                .what = DesktopHolds::what(hold.kind),
                .effective = hold.inhibitor->state() == Inhibitor::State::effective});
        }
    }

    /// Brings the holds in line with the facts; asks `changedService` again.
    void apply(const QString& changedService)
    {
        const DesktopFactsWatch& watch = m_owner->m_watch;
        if (!watch.isKnown())
            return;
        const auto wanted = m_type == PowerAssertionType::preventUserIdleSystemSleep
            ? DesktopHoldRules::againstSystemSleep(watch.facts())
            : DesktopHoldRules::againstDisplaySleep(watch.facts());
        // What a vanished service held is kept for its return: it may only be restarting.
        std::erase_if(m_holds, [&](const Hold& hold) { return !wanted.contains(hold.kind) && isServed(hold); });
        for (const Hold& hold : m_holds) {
            if (hold.inhibitor->service() == changedService)
                hold.inhibitor->setOwner(watch.owner(changedService));
        }
        for (const DesktopHold kind : wanted) {
            if (std::ranges::find(m_holds, kind, &Hold::kind) == m_holds.end())
                add(kind);
        }
        m_owner->schedulePublishing();
    }

    void orphan() { m_owner = nullptr; }

private:
    struct Hold {
        DesktopHold kind;
        std::unique_ptr<Inhibitor> inhibitor;
    };

    bool isServed(const Hold& hold) const
    {
        const QString service = hold.inhibitor->service();
        return service.isEmpty() || !m_owner->m_watch.owner(service).isEmpty();
    }

    void add(DesktopHold kind) { m_holds.push_back({kind, m_owner->makeInhibitor(kind, m_name)}); }

    DesktopPowerAssertions* m_owner;
    PowerAssertionType m_type;
    QString m_name;
    std::vector<Hold> m_holds;
    bool m_failureTold = false;
};

DesktopPowerAssertions::DesktopPowerAssertions(QDBusConnection systemBus,
    QDBusConnection sessionBus,
    const QString& currentDesktop,
    X11ScreenSaver x11ScreenSaver,
    Clock& clock)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_x11ScreenSaver(std::move(x11ScreenSaver))
    , m_clock(clock)
    , m_watch(m_systemBus, m_sessionBus, currentDesktop, m_x11ScreenSaver != nullptr)
{
    m_watch.onChange = [this](const QString& service) {
        for (Assertion* assertion : m_assertions)
            assertion->apply(service);
    };
}

DesktopPowerAssertions::~DesktopPowerAssertions()
{
    for (Assertion* assertion : std::exchange(m_assertions, {}))
        assertion->orphan();
    finishRearming();
}

std::unique_ptr<PowerAssertion> DesktopPowerAssertions::create(PowerAssertionType type, const QString& name)
{
    return std::make_unique<Assertion>(*this, type, name);
}

std::unique_ptr<Inhibitor> DesktopPowerAssertions::makeInhibitor(DesktopHold kind, const QString& who)
{
    if (kind == DesktopHold::x11ScreenSaver)
        return m_x11ScreenSaver();
    const auto& bus = DesktopHolds::isOnSystemBus(kind) ? m_systemBus : m_sessionBus;
    const auto publish = [this, alive = QPointer(&m_eventLoop)] {
        if (alive)
            schedulePublishing();
    };
    auto inhibitor = std::make_unique<DBusInhibitor>(bus, DesktopHolds::request(kind, who), m_clock, publish);
    inhibitor->setOwner(m_watch.owner(inhibitor->service()));
    return inhibitor;
}

void DesktopPowerAssertions::rearm(const QString& who)
{
    for (const DesktopHold kind : DesktopHoldRules::rearmingSystemSleep(m_watch.facts()))
        m_rearming.push_back(makeInhibitor(kind, who));
    if (!m_rearming.empty())
        m_rearmingEnd = m_clock.after(rearmingTime, [this] {
            m_rearming.clear();
            m_rearmed();
        });
}

void DesktopPowerAssertions::finishRearming()
{
    // What is no service of a bus has been told once and for all.
    const auto takesTime = [](const auto& inhibitor) { return !inhibitor->service().isEmpty(); };
    if (std::ranges::none_of(m_rearming, takesTime))
        return;
    QEventLoop wait;
    const Subscription end = m_rearmed.subscribe([&] { wait.quit(); });
    wait.exec();
}

QList<PowerAssertionHold> DesktopPowerAssertions::holds() const
{
    QList<PowerAssertionHold> list;
    for (const Assertion* assertion : m_assertions)
        assertion->appendHolds(list);
    return list;
}

void DesktopPowerAssertions::schedulePublishing()
{
    if (std::exchange(m_publishingScheduled, true))
        return;
    QMetaObject::invokeMethod(
        &m_eventLoop, [this] { publish(); }, Qt::QueuedConnection);
}

void DesktopPowerAssertions::publish()
{
    m_publishingScheduled = false;
    std::vector<std::pair<PowerAssertionType, int>> failures;
    for (Assertion* assertion : m_assertions) {
        if (assertion->takeFailureNews())
            failures.emplace_back(assertion->type(), *assertion->failure());
    }
    // Whoever is told may create and destroy assertions.
    for (const auto& [type, code] : failures)
        failed(type, code);
    holdsChanged();
}

} // namespace Tarvik
