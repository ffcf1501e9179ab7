// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/ClosedLidSleep.h"

#include "core/Logging.h"
#include "dbus/BusNames.h"

#include <QEventLoop>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

ClosedLidSleep::ClosedLidSleep(QDBusConnection systemBus, QDBusConnection sessionBus, Clock& clock)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_clock(clock)
{
}

void ClosedLidSleep::start()
{
    stop();
    m_isUnderWay = true;
    m_waitsLeft = waits;
    m_timer = m_clock.after(settlingTime, [this] { look(); });
}

void ClosedLidSleep::stop()
{
    m_timer.reset();
    m_reader.reset();
    end();
}

void ClosedLidSleep::finish()
{
    if (!m_isUnderWay)
        return;
    QEventLoop wait;
    const Subscription ended = m_ended.subscribe([&] { wait.quit(); });
    const auto patience = m_clock.after(settlingTime + (waits + 1) * waitingTime, [&] { wait.quit(); });
    wait.exec();
}

void ClosedLidSleep::end()
{
    m_isUnderWay = false;
    m_ended();
}

void ClosedLidSleep::look()
{
    m_reader.emplace(m_systemBus, m_sessionBus);
    m_reader->read([this](const std::optional<ClosedLidFacts>& facts) { act(facts); });
}

void ClosedLidSleep::act(const std::optional<ClosedLidFacts>& facts)
{
    switch (facts ? ClosedLidRules::afterLock(*facts) : ClosedLidRules::Step::nothing) {
    case ClosedLidRules::Step::nothing:
        end();
        break;
    case ClosedLidRules::Step::wait:
        if (m_waitsLeft-- > 0)
            m_timer = m_clock.after(waitingTime, [this] { look(); });
        else
            end();
        break;
    case ClosedLidRules::Step::suspend:
        suspend();
        break;
    }
}

void ClosedLidSleep::suspend()
{
    constexpr bool asksForPassword = false;
    auto call = QDBusMessage::createMethodCall(
        BusNames::logind, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, u"Suspend"_s);
    call.setArguments({asksForPassword});
    m_suspending = callAsync(m_systemBus, call, [this](const QDBusMessage& answer) {
        m_suspending.reset();
        if (answer.type() == QDBusMessage::ErrorMessage)
            qCWarning(logSystem, "The computer was not put to sleep: %ls", qUtf16Printable(answer.errorMessage()));
        end();
    });
}

} // namespace Tarvik
