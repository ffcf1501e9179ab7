// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/DesktopDisplayPower.h"

#include "dbus/BusNames.h"
#include "platform/linux/sleep/BusDisplaySwitch.h"
#include "platform/linux/sleep/CommandDisplaySwitch.h"
#include "platform/linux/sleep/WaylandDisplaySwitch.h"
#include "platform/linux/sleep/X11DisplaySwitch.h"

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

DesktopDisplayPower::DesktopDisplayPower(QDBusConnection sessionBus, Display display, Clock& clock)
    : m_sessionBus(std::move(sessionBus))
    , m_display(std::move(display))
    , m_clock(clock)
{
}

DesktopDisplayPower::~DesktopDisplayPower() = default;

void DesktopDisplayPower::sleepNow(std::function<void(const QString& error)> done)
{
    m_done = std::move(done);
    m_names.emplace(m_sessionBus,
        QStringList{BusNames::gnomeScreenSaver,
            BusNames::gnomePowerManager,
            BusNames::mutterDisplayConfig,
            BusNames::kdePowerManager,
            BusNames::kglobalaccel});
    m_names->onKnown = [this] { begin(); };
    if (m_names->isKnown())
        begin();
}

void DesktopDisplayPower::wake()
{
    m_names.reset();
    m_waysLeft.clear();
    m_next.reset();
    m_done = nullptr;
    if (m_switch)
        m_switch->switchOn();
}

void DesktopDisplayPower::begin()
{
    m_waysLeft = DisplayPowerRules::ways({
        .gnomeScreenSaver = m_names->isOwned(BusNames::gnomeScreenSaver),
        .gnomePowerManager = m_names->isOwned(BusNames::gnomePowerManager),
        .mutter = m_names->isOwned(BusNames::mutterDisplayConfig),
        .kdePowerManager = m_names->isOwned(BusNames::kdePowerManager),
        .kglobalaccel = m_names->isOwned(BusNames::kglobalaccel),
        .wayland = !m_display.waylandSocket.isEmpty(),
        .x11 = m_display.x11 != nullptr,
    });
    m_error = u"nobody is known here who could switch the displays off"_s;
    // Those that fail do so at once, while they are being asked.
    m_next = m_clock.after(Seconds::zero(), [this] { tryNext(); });
}

void DesktopDisplayPower::tryNext()
{
    if (m_waysLeft.isEmpty()) {
        m_switch.reset();
        finish(m_error);
        return;
    }
    m_switch = makeSwitch(m_waysLeft.takeFirst());
    m_switch->switchOff([this](const QString& error) {
        m_error = error;
        if (error.isEmpty())
            finish({});
        else
            m_next = m_clock.after(Seconds::zero(), [this] { tryNext(); });
    });
}

std::unique_ptr<DisplaySwitch> DesktopDisplayPower::makeSwitch(DisplayWay way) const
{
    switch (way) {
    case DisplayWay::gnomeScreenSaver:
        return BusDisplaySwitch::gnomeScreenSaver(m_sessionBus);
    case DisplayWay::mutterPowerSave:
        return BusDisplaySwitch::mutterPowerSave(m_sessionBus);
    case DisplayWay::kdeShortcut:
        return BusDisplaySwitch::kdeShortcut(m_sessionBus);
    case DisplayWay::kscreenDoctor:
        return std::make_unique<CommandDisplaySwitch>();
    case DisplayWay::waylandOutputPower:
        return std::make_unique<WaylandDisplaySwitch>(m_display.waylandSocket, m_clock);
    case DisplayWay::x11Dpms:
        return std::make_unique<X11DisplaySwitch>(m_display.x11, m_clock);
    }
    Q_UNREACHABLE();
}

void DesktopDisplayPower::finish(const QString& error)
{
    if (const auto done = std::exchange(m_done, {}))
        done(error);
}

} // namespace Tarvik
