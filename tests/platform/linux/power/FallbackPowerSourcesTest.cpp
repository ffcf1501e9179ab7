// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/FallbackPowerSources.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeLidSensor.h"
#include "fakes/FakePowerSources.h"
#include "monitors/PowerMonitor.h"
#include "support/TestSupport.h"

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

PowerSourcesSnapshot providing(const QString& type)
{
    return {.providingType = type, .sources = {}};
}

const auto mains = u"AC Power"_s;
const auto batteries = u"Battery Power"_s;

} // namespace

class FallbackPowerSourcesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_fallback = nullptr;
        m_made = 0;
        m_fallbackReading = providing(batteries);
    }

    void aStartOnBatteryIsKnownBeforeTheServiceAnswers()
    {
        const auto sources = make();
        FakeLidSensor lid;
        FakeClock clock;
        const PowerMonitor monitor{*sources, lid, clock};
        QVERIFY(!monitor.isOnAC());
    }

    void theFirstAnswerOfTheServiceAfterAStartOnMainsChangesNothing()
    {
        m_fallbackReading = providing(mains);
        const auto sources = make();
        FakeLidSensor lid;
        FakeClock clock;
        PowerMonitor monitor{*sources, lid, clock};
        QVERIFY(monitor.isOnAC());
        QList<bool> seen;
        monitor.onChange = [&] { seen << monitor.isOnAC(); };
        m_preferred->current = providing(mains);
        m_preferred->announce();
        QCOMPARE(seen, QList<bool>{true});
    }

    void theFallbackIsDestroyedWhenTheServiceAnswersAndMadeAgainWhenItVanishes()
    {
        const auto sources = make();
        QCOMPARE(m_made, 1);
        m_preferred->current = providing(mains);
        m_preferred->announce();
        QCOMPARE(sources->snapshot(), providing(mains));

        m_preferred->current.reset();
        m_preferred->announce();
        QCOMPARE(m_made, 2);
        QCOMPARE(sources->snapshot(), providing(batteries));
    }

    void theFallbackIsNotMadeWhenTheServiceKnowsAtOnce()
    {
        auto preferred = std::make_unique<FakePowerSources>();
        preferred->current = providing(mains);
        const FallbackPowerSources sources{std::move(preferred), [this] { return makeFallback(); }};
        QCOMPARE(m_made, 0);
        QCOMPARE(sources.snapshot(), providing(mains));
    }

    void changesOfEitherAreReported()
    {
        const auto sources = make();
        int changes = 0;
        const Subscription listening = sources->changed.subscribe([&] { ++changes; });
        m_fallback->announce();
        QCOMPARE(changes, 1);
        m_preferred->current = providing(mains);
        m_preferred->announce();
        QCOMPARE(changes, 2);
    }

    void whenNeitherKnowsNothingIsKnown()
    {
        m_fallbackReading.reset();
        QVERIFY(!make()->snapshot());
    }

private:
    std::unique_ptr<FallbackPowerSources> make()
    {
        auto preferred = std::make_unique<FakePowerSources>();
        m_preferred = preferred.get();
        return std::make_unique<FallbackPowerSources>(std::move(preferred), [this] { return makeFallback(); });
    }

    std::unique_ptr<PowerSources> makeFallback()
    {
        ++m_made;
        auto fallback = std::make_unique<FakePowerSources>();
        fallback->current = m_fallbackReading;
        m_fallback = fallback.get();
        return fallback;
    }

    FakePowerSources* m_preferred = nullptr;
    FakePowerSources* m_fallback = nullptr;
    std::optional<PowerSourcesSnapshot> m_fallbackReading;
    int m_made = 0;
};

QTEST_GUILESS_MAIN(FallbackPowerSourcesTest)
#include "FallbackPowerSourcesTest.moc"
