// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/WaylandDisplaySwitch.h"

#include <QFile>

#include <poll.h>
#include <wayland-client.h>
#include <wlr-output-power-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// How long the end of the process may wait for the compositor.
constexpr std::chrono::milliseconds longestGoodbye{200};

const auto incomplete = u"the compositor does not switch off all displays"_s;

} // namespace

/// What libwayland calls, for the object that it is given.
struct WaylandDisplaySwitch::Listeners {
    static WaylandDisplaySwitch& of(void* data) { return *static_cast<WaylandDisplaySwitch*>(data); }
    static Output& output(void* data) { return *static_cast<Output*>(data); }

    static constexpr wl_registry_listener registry{
        .global =
            [](void* data, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t) {
                of(data).bind(name, interface);
            },
        .global_remove = [](void*, wl_registry*, std::uint32_t) {},
    };
    static constexpr wl_callback_listener settled{
        .done = [](void* data, wl_callback*, std::uint32_t) { of(data).m_settled.reset(); },
    };
    static constexpr zwlr_output_power_v1_listener power{
        .mode = [](void* data,
                    zwlr_output_power_v1*,
                    std::uint32_t mode) { output(data).isOn = mode == ZWLR_OUTPUT_POWER_V1_MODE_ON; },
        .failed = [](void* data, zwlr_output_power_v1*) { output(data).hasFailed = true; },
    };
};

void WaylandDisplaySwitch::Destroy::operator()(wl_callback* callback) const
{
    wl_callback_destroy(callback);
}

void WaylandDisplaySwitch::Destroy::operator()(wl_display* display) const
{
    wl_display_disconnect(display);
}

void WaylandDisplaySwitch::Destroy::operator()(wl_output* output) const
{
    wl_output_destroy(output);
}

void WaylandDisplaySwitch::Destroy::operator()(wl_registry* registry) const
{
    wl_registry_destroy(registry);
}

void WaylandDisplaySwitch::Destroy::operator()(zwlr_output_power_manager_v1* manager) const
{
    zwlr_output_power_manager_v1_destroy(manager);
}

void WaylandDisplaySwitch::Destroy::operator()(zwlr_output_power_v1* power) const
{
    zwlr_output_power_v1_destroy(power);
}

WaylandDisplaySwitch::WaylandDisplaySwitch(QString socket, Clock& clock)
    : m_socket(std::move(socket))
    , m_clock(clock)
{
}

WaylandDisplaySwitch::~WaylandDisplaySwitch()
{
    if (m_display == nullptr || !restore())
        return;
    // The compositor reads no more from whoever has hung up.
    settle({});
    pollfd answer{.fd = wl_display_get_fd(m_display.get()), .events = POLLIN, .revents = 0};
    while (m_settled != nullptr && poll(&answer, 1, static_cast<int>(longestGoodbye.count())) > 0) {
        if (wl_display_dispatch(m_display.get()) < 0)
            break;
    }
}

void WaylandDisplaySwitch::switchOff(Receiver done)
{
    disconnect();
    m_done = std::move(done);
    m_display.reset(wl_display_connect(QFile::encodeName(m_socket).constData()));
    if (m_display == nullptr) {
        finish(u"the compositor cannot be reached"_s);
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(wl_display_get_fd(m_display.get()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { receive(); });
    m_registry.reset(wl_display_get_registry(m_display.get()));
    wl_registry_add_listener(m_registry.get(), &Listeners::registry, this);
    settle([this] { askForModes(); });
}

void WaylandDisplaySwitch::switchOn()
{
    m_done = nullptr;
    m_timeout.reset();
    if (m_display == nullptr)
        return;
    restore();
    settle([this] { disconnect(); });
}

void WaylandDisplaySwitch::bind(std::uint32_t name, const char* interface)
{
    constexpr std::uint32_t version = 1;
    if (std::strcmp(interface, zwlr_output_power_manager_v1_interface.name) == 0 && m_manager == nullptr) {
        m_manager.reset(static_cast<zwlr_output_power_manager_v1*>(
            wl_registry_bind(m_registry.get(), name, &zwlr_output_power_manager_v1_interface, version)));
    } else if (std::strcmp(interface, wl_output_interface.name) == 0) {
        auto output = std::make_unique<Output>();
        output->output.reset(
            static_cast<wl_output*>(wl_registry_bind(m_registry.get(), name, &wl_output_interface, version)));
        m_outputs.push_back(std::move(output));
    }
}

void WaylandDisplaySwitch::askForModes()
{
    if (m_manager == nullptr) {
        finish(u"the compositor has no way to switch its displays off"_s);
        return;
    }
    for (const auto& output : m_outputs) {
        output->power.reset(zwlr_output_power_manager_v1_get_output_power(m_manager.get(), output->output.get()));
        zwlr_output_power_v1_add_listener(output->power.get(), &Listeners::power, output.get());
    }
    settle([this] { setModes(); });
}

void WaylandDisplaySwitch::setModes()
{
    for (const auto& output : m_outputs) {
        if (!output->power || !output->isOn || output->hasFailed)
            continue;
        zwlr_output_power_v1_set_mode(output->power.get(), ZWLR_OUTPUT_POWER_V1_MODE_OFF);
        output->isSwitchedOff = true;
    }
    m_timeout = m_clock.after(patience, [this] { finish(incomplete); });
    settle([this] { judge(); });
}

void WaylandDisplaySwitch::judge()
{
    // Some set the mode, and tell of it, only with the next picture.
    const auto is = [this](auto matches) { return std::ranges::any_of(m_outputs, matches); };
    if (is([](const auto& output) { return output->hasFailed; }))
        finish(incomplete);
    else if (!is([](const auto& output) { return output->isSwitchedOff && output->isOn; }))
        finish({});
}

void WaylandDisplaySwitch::settle(std::function<void()> next)
{
    m_next = std::move(next);
    m_settled.reset(wl_display_sync(m_display.get()));
    wl_callback_add_listener(m_settled.get(), &Listeners::settled, this);
    wl_display_flush(m_display.get());
}

void WaylandDisplaySwitch::receive()
{
    wl_display* display = m_display.get();
    while (wl_display_prepare_read(display) != 0)
        wl_display_dispatch_pending(display);
    wl_display_read_events(display);
    wl_display_dispatch_pending(display);
    if (wl_display_get_error(display) != 0) {
        disconnect();
        finish(u"the compositor has gone"_s);
    } else if (m_settled == nullptr) {
        if (const auto next = std::exchange(m_next, {}))
            next();
        else if (m_timeout)
            judge();
    }
}

bool WaylandDisplaySwitch::restore()
{
    bool hasRestored = false;
    for (const auto& output : m_outputs) {
        if (!std::exchange(output->isSwitchedOff, false) || output->hasFailed)
            continue;
        zwlr_output_power_v1_set_mode(output->power.get(), ZWLR_OUTPUT_POWER_V1_MODE_ON);
        hasRestored = true;
    }
    return hasRestored;
}

void WaylandDisplaySwitch::finish(const QString& error)
{
    m_timeout.reset();
    if (const auto done = std::exchange(m_done, {}))
        done(error);
}

void WaylandDisplaySwitch::disconnect()
{
    if (m_notifier) {
        m_notifier->setEnabled(false);
        // This may be its own call.
        m_notifier.release()->deleteLater();
    }
    m_next = nullptr;
    m_settled.reset();
    m_outputs.clear();
    m_manager.reset();
    m_registry.reset();
    m_display.reset();
}

} // namespace Tarvik
