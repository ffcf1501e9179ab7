// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace Tarvik {

/// Somebody listens to a signal, from its subscribing to the end of this object or of the signal.
class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<const void> listener)
        : m_listener(std::move(listener))
    {
    }
    Subscription(Subscription&&) = default;
    Subscription& operator=(Subscription&&) = default;

private:
    std::shared_ptr<const void> m_listener;
};

/// News, such as Signal<void(int x, int y)>, for any number of listeners, which are called at once and in the order of
/// their subscribing. Whoever is called may end its own subscription or another's, subscribe, and destroy the signal:
/// then the rest does not hear of it.
template <typename Function>
class Signal;

template <typename... Arguments>
class Signal<void(Arguments...)> {
public:
    using Listener = std::function<void(Arguments...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    Subscription subscribe(Listener listener)
    {
        std::erase_if(*m_listeners, [](const auto& known) { return known.expired(); });
        auto owned = std::make_shared<const Listener>(std::move(listener));
        m_listeners->push_back(owned);
        return Subscription(std::move(owned));
    }

    /// Tells everybody who has subscribed by now.
    void operator()(Arguments... arguments) const
    {
        const std::weak_ptr<const Listeners> alive = m_listeners;
        for (const auto& known : Listeners(*m_listeners)) {
            if (const auto listener = known.lock(); listener && !alive.expired())
                (*listener)(arguments...);
        }
    }

private:
    using Listeners = std::vector<std::weak_ptr<const Listener>>;

    std::shared_ptr<Listeners> m_listeners = std::make_shared<Listeners>();
};

} // namespace Tarvik
