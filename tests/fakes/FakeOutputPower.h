// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <wayland-server.h>
#include <wlr-output-power-management-unstable-v1-client-protocol.h>

#include <array>
#include <atomic>
#include <thread>

namespace Tarvik {

/// A Wayland compositor, in a thread of its own, with two displays that clients may switch off.
class FakeOutputPower {
public:
    enum class Behaviour {
        atOnce,
        /// Sets the mode, and tells of it, after it has answered everything else.
        later,
        fails,
        staysSilent,
    };

    explicit FakeOutputPower(Behaviour behaviour = Behaviour::atOnce)
        : m_behaviour(behaviour)
        , m_display(wl_display_create())
    {
        // An absolute path is taken as it is.
        if (wl_display_add_socket(m_display, QFile::encodeName(socket()).constData()) != 0)
            qFatal("no socket can be made");
        for (std::atomic<bool>& output : isOn)
            wl_global_create(m_display, &wl_output_interface, 1, &output, bindOutput);
        wl_global_create(m_display, &zwlr_output_power_manager_v1_interface, 1, this, bindManager);
        m_thread = std::thread([this] {
            while (!m_isOver) {
                wl_event_loop_dispatch(wl_display_get_event_loop(m_display), 10);
                wl_display_flush_clients(m_display);
            }
        });
    }
    ~FakeOutputPower()
    {
        m_isOver = true;
        m_thread.join();
        wl_display_destroy_clients(m_display);
        wl_display_destroy(m_display);
    }
    FakeOutputPower(const FakeOutputPower&) = delete;
    FakeOutputPower& operator=(const FakeOutputPower&) = delete;

    QString socket() const { return m_directory.filePath(QStringLiteral("wayland")); }

    std::array<std::atomic<bool>, 2> isOn{true, true};

private:
    using IsOn = std::atomic<bool>;

    /// In the order of the protocol.
    struct Manager {
        void (*getOutputPower)(wl_client*, wl_resource*, std::uint32_t, wl_resource*);
        void (*destroy)(wl_client*, wl_resource*);
    };
    struct Power {
        void (*setMode)(wl_client*, wl_resource*, std::uint32_t);
        void (*destroy)(wl_client*, wl_resource*);
    };
    static constexpr std::uint32_t modeEvent = 0;
    static constexpr std::uint32_t failedEvent = 1;

    static void destroy(wl_client*, wl_resource* resource) { wl_resource_destroy(resource); }

    static void bindOutput(wl_client* client, void* isOn, std::uint32_t version, std::uint32_t id)
    {
        wl_resource* resource = wl_resource_create(client, &wl_output_interface, static_cast<int>(version), id);
        wl_resource_set_implementation(resource, nullptr, isOn, nullptr);
    }

    static void bindManager(wl_client* client, void* self, std::uint32_t version, std::uint32_t id)
    {
        static constexpr Manager manager{getOutputPower, destroy};
        wl_resource* resource
            = wl_resource_create(client, &zwlr_output_power_manager_v1_interface, static_cast<int>(version), id);
        wl_resource_set_implementation(resource, &manager, self, nullptr);
    }

    static void getOutputPower(wl_client* client, wl_resource* manager, std::uint32_t id, wl_resource* output)
    {
        static constexpr Power power{setMode, destroy};
        auto* self = static_cast<FakeOutputPower*>(wl_resource_get_user_data(manager));
        wl_resource* resource = wl_resource_create(client, &zwlr_output_power_v1_interface, 1, id);
        auto& isOn = *static_cast<IsOn*>(wl_resource_get_user_data(output));
        const bool isFirst = &isOn == self->isOn.data();
        wl_resource_set_implementation(resource, &power, self, nullptr);
        self->m_powers[isFirst ? 0 : 1] = resource;
        wl_resource_post_event(resource, modeEvent, isOn ? 1U : 0U);
    }

    static void setMode(wl_client* client, wl_resource* resource, std::uint32_t mode)
    {
        auto* self = static_cast<FakeOutputPower*>(wl_resource_get_user_data(resource));
        IsOn& isOn = self->isOn[resource == self->m_powers[0] ? 0 : 1];
        if (self->m_behaviour == Behaviour::staysSilent)
            return;
        if (self->m_behaviour == Behaviour::fails) {
            wl_resource_post_event(resource, failedEvent);
            return;
        }
        isOn = mode != 0;
        if (self->m_behaviour == Behaviour::atOnce)
            wl_resource_post_event(resource, modeEvent, mode);
        else
            wl_event_loop_add_idle(wl_display_get_event_loop(wl_client_get_display(client)), tell, self);
    }

    static void tell(void* data)
    {
        auto* self = static_cast<FakeOutputPower*>(data);
        for (std::size_t i = 0; i < self->m_powers.size(); ++i)
            wl_resource_post_event(self->m_powers[i], modeEvent, self->isOn[i] ? 1U : 0U);
    }

    Behaviour m_behaviour;
    QTemporaryDir m_directory;
    wl_display* m_display;
    std::array<wl_resource*, 2> m_powers{};
    std::atomic<bool> m_isOver = false;
    std::thread m_thread;
};

} // namespace Tarvik
