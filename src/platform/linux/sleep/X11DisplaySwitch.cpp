// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/X11DisplaySwitch.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/dpms.h>

#include <string_view>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

X11DisplaySwitch::X11DisplaySwitch(std::shared_ptr<X11Connection> connection, Clock& clock)
    : m_connection(std::move(connection))
    , m_clock(clock)
{
}

X11DisplaySwitch::~X11DisplaySwitch()
{
    switchOn();
}

void X11DisplaySwitch::switchOff(Receiver done)
{
    m_done = std::move(done);
    m_timer = m_clock.after(delay, [this] { begin(); });
}

void X11DisplaySwitch::switchOn()
{
    m_done = nullptr;
    m_timer.reset();
    m_answer = {};
    m_loss = {};
    xcb_connection_t* server = m_connection->get();
    if (!std::exchange(m_isOff, false) || server == nullptr)
        return;
    xcb_dpms_force_level(server, XCB_DPMS_DPMS_MODE_ON);
    if (m_wasDisabled)
        xcb_dpms_disable(server);
    m_connection->send();
}

void X11DisplaySwitch::begin()
{
    xcb_connection_t* server = m_connection->get();
    if (server == nullptr) {
        finish(u"the X server cannot be reached"_s);
        return;
    }
    m_loss = m_connection->lost.subscribe([this] { finish(u"the X server has gone"_s); });
    // Every request of the extension would else wait for this.
    xcb_prefetch_extension_data(server, &xcb_dpms_id);
    constexpr std::string_view name = "DPMS";
    const auto query = xcb_query_extension(server, static_cast<std::uint16_t>(name.size()), name.data());
    await(query.sequence, [this](const void* reply) {
        const auto* extension = static_cast<const xcb_query_extension_reply_t*>(reply);
        if (extension != nullptr && extension->present != 0)
            askWhetherCapable();
        else
            finish(u"the X server cannot switch its displays off"_s);
    });
}

void X11DisplaySwitch::askWhetherCapable()
{
    await(xcb_dpms_capable(m_connection->get()).sequence, [this](const void* reply) {
        const auto* capable = static_cast<const xcb_dpms_capable_reply_t*>(reply);
        if (capable != nullptr && capable->capable != 0)
            askForState();
        else
            finish(u"the X server cannot switch its displays off"_s);
    });
}

void X11DisplaySwitch::askForState()
{
    await(xcb_dpms_info(m_connection->get()).sequence, [this](const void* reply) {
        const auto* info = static_cast<const xcb_dpms_info_reply_t*>(reply);
        m_wasDisabled = info != nullptr && info->state == 0;
        force();
    });
}

void X11DisplaySwitch::force()
{
    xcb_connection_t* server = m_connection->get();
    if (m_wasDisabled)
        xcb_dpms_enable(server);
    xcb_dpms_force_level(server, XCB_DPMS_DPMS_MODE_OFF);
    m_isOff = true;
    await(xcb_dpms_info(server).sequence, [this](const void* reply) {
        const auto* info = static_cast<const xcb_dpms_info_reply_t*>(reply);
        const bool isOff = info != nullptr && info->power_level == XCB_DPMS_DPMS_MODE_OFF;
        finish(isOff ? QString() : u"the X server does not switch its displays off"_s);
    });
}

void X11DisplaySwitch::await(unsigned int sequence, std::function<void(const void* reply)> take)
{
    m_answer = m_connection->await(sequence, std::move(take));
    m_connection->send();
}

void X11DisplaySwitch::finish(const QString& error)
{
    m_answer = {};
    m_loss = {};
    if (const auto done = std::exchange(m_done, {}))
        done(error);
}

} // namespace Tarvik
