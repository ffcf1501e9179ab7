// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/linux/sleep/DisplaySwitch.h"

#include <QSocketNotifier>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

struct wl_callback;
struct wl_display;
struct wl_output;
struct wl_registry;
struct zwlr_output_power_manager_v1;
struct zwlr_output_power_v1;

namespace Tarvik {

/// By the zwlr_output_power_manager_v1 of a Wayland compositor, which leaves the displays off until it is told
/// otherwise. Connected from `switchOff()` until the displays are on again.
class WaylandDisplaySwitch final : public DisplaySwitch {
public:
    /// How long a compositor may take to switch off.
    static constexpr Seconds patience{2};

    /// `socket` is the absolute path of the compositor's socket. `clock` must outlive the object.
    WaylandDisplaySwitch(QString socket, Clock& clock);
    ~WaylandDisplaySwitch() override;

    WaylandDisplaySwitch(const WaylandDisplaySwitch&) = delete;
    WaylandDisplaySwitch& operator=(const WaylandDisplaySwitch&) = delete;

    void switchOff(Receiver done) override;
    void switchOn() override;

private:
    struct Destroy {
        void operator()(wl_callback* callback) const;
        void operator()(wl_display* display) const;
        void operator()(wl_output* output) const;
        void operator()(wl_registry* registry) const;
        void operator()(zwlr_output_power_manager_v1* manager) const;
        void operator()(zwlr_output_power_v1* power) const;
    };
    template <typename T>
    using Object = std::unique_ptr<T, Destroy>;

    struct Output {
        Object<wl_output> output;
        Object<zwlr_output_power_v1> power;
        bool isOn = false;
        bool isSwitchedOff = false;
        bool hasFailed = false;
    };
    struct Listeners;

    void bind(std::uint32_t name, const char* interface);
    void askForModes();
    void setModes();
    void judge();
    /// Calls `next` when the compositor has done everything that it was asked for.
    void settle(std::function<void()> next);
    void receive();
    bool restore();
    void finish(const QString& error);
    void disconnect();

    QString m_socket;
    Clock& m_clock;
    std::unique_ptr<Timer> m_timeout;
    Receiver m_done;
    std::function<void()> m_next;
    // Before everything that belongs to the display, so that it goes after it.
    Object<wl_display> m_display;
    Object<wl_registry> m_registry;
    Object<zwlr_output_power_manager_v1> m_manager;
    Object<wl_callback> m_settled;
    std::vector<std::unique_ptr<Output>> m_outputs;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Tarvik
