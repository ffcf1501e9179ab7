// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/Signal.h"

#include "support/TestSupport.h"

#include <optional>

using namespace Tarvik;
using namespace Qt::StringLiterals;

class SignalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TARVIK_FAIL_ON_WARNINGS();
        m_heard.clear();
        m_signal.emplace();
    }

    void everyListenerIsToldInTheOrderOfSubscribing()
    {
        const Subscription first = listenAs(u"first"_s);
        const Subscription second = listenAs(u"second"_s);
        (*m_signal)(7);
        QCOMPARE(m_heard, QStringList({u"first 7"_s, u"second 7"_s}));
    }

    void nobodyHasToListen()
    {
        (*m_signal)(7);
        QCOMPARE(m_heard, QStringList());
    }

    void whoHasEndedTheSubscriptionIsNotToldAnyMore()
    {
        Subscription first = listenAs(u"first"_s);
        const Subscription second = listenAs(u"second"_s);
        first = {};
        (*m_signal)(7);
        QCOMPARE(m_heard, QStringList(u"second 7"_s));
    }

    void anotherSubscriptionInItsPlaceEndsTheFirst()
    {
        Subscription subscription = listenAs(u"first"_s);
        subscription = listenAs(u"second"_s);
        (*m_signal)(7);
        QCOMPARE(m_heard, QStringList(u"second 7"_s));
    }

    void aListenerMayEndItsOwnSubscription()
    {
        Subscription own;
        const QString name = u"own"_s;
        own = m_signal->subscribe([&own, name, this](int value) {
            own = {};
            // What the listener has of its own is still there.
            hear(name, value);
        });
        const Subscription other = listenAs(u"other"_s);
        (*m_signal)(1);
        (*m_signal)(2);
        QCOMPARE(m_heard, QStringList({u"own 1"_s, u"other 1"_s, u"other 2"_s}));
    }

    void aListenerMayEndTheSubscriptionOfTheNext()
    {
        Subscription next;
        const Subscription first = m_signal->subscribe([&](int value) {
            next = {};
            hear(u"first"_s, value);
        });
        next = listenAs(u"next"_s);
        (*m_signal)(7);
        QCOMPARE(m_heard, QStringList(u"first 7"_s));
    }

    void whoSubscribesMeanwhileHearsOfTheNextTime()
    {
        Subscription late;
        const Subscription first = m_signal->subscribe([&](int value) {
            if (value == 1)
                late = listenAs(u"late"_s);
        });
        (*m_signal)(1);
        QCOMPARE(m_heard, QStringList());
        (*m_signal)(2);
        QCOMPARE(m_heard, QStringList(u"late 2"_s));
    }

    void aListenerMayDestroyTheSignalAndIsTheLastToBeTold()
    {
        const Subscription first = m_signal->subscribe([&](int value) {
            m_signal.reset();
            hear(u"first"_s, value);
        });
        const Subscription second = listenAs(u"second"_s);
        (*m_signal)(7);
        QCOMPARE(m_heard, QStringList(u"first 7"_s));
    }

    void aSubscriptionMayOutliveTheSignal()
    {
        const Subscription subscription = listenAs(u"first"_s);
        m_signal.reset();
        QCOMPARE(m_heard, QStringList());
    }

    void whatAListenerHoldsGoesWithItsSubscription()
    {
        const auto held = std::make_shared<int>(0);
        {
            const Subscription subscription = m_signal->subscribe([held](int) {});
            QCOMPARE(held.use_count(), 2);
        }
        QCOMPARE(held.use_count(), 1);
    }

private:
    void hear(const QString& name, int value) { m_heard.append(u"%1 %2"_s.arg(name).arg(value)); }

    Subscription listenAs(const QString& name)
    {
        return m_signal->subscribe([this, name](int value) { hear(name, value); });
    }

    std::optional<Signal<void(int)>> m_signal;
    QStringList m_heard;
};

QTEST_GUILESS_MAIN(SignalTest)
#include "SignalTest.moc"
