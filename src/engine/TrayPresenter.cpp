// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/TrayPresenter.h"

#include "core/AppSettings.h"
#include "core/Logging.h"
#include "core/SessionChoices.h"
#include "engine/AwakeCoordinator.h"

#include <QCoreApplication>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr Seconds hostPatience{10};

/// The ids of the menu's entries.
enum Entry {
    openPanel = 1,
    status,
    separatorAboveSwitch,
    onOff,
    session,
    separatorAboveCancel,
    cancelTimer,
    lockAndLeave,
    separatorAboveSettings,
    openSettings,
    quit,
    firstLength = 100,
};

TrayMenuEntry command(int id, const QString& label)
{
    TrayMenuEntry entry;
    entry.id = id;
    entry.label = label;
    return entry;
}

TrayMenuEntry separator(int id)
{
    TrayMenuEntry entry;
    entry.id = id;
    entry.isSeparator = true;
    return entry;
}

QString imageName(const AwakeCoordinator& coordinator)
{
    if (coordinator.isAwake())
        return u"MenuActive"_s;
    return coordinator.isPaused() ? u"MenuIdle"_s : u"MenuLooking"_s;
}

QString joined(const QString& subtitle, const QString& details)
{
    return details.isEmpty() ? subtitle : subtitle + u" · "_s + details;
}

void call(const std::function<void()>& callback)
{
    if (callback)
        callback();
}

} // namespace

TrayPresenter::TrayPresenter(AwakeCoordinator& coordinator, AppSettings& settings, TrayItem& tray, Clock& clock)
    : m_coordinator(coordinator)
    , m_settings(settings)
    , m_tray(tray)
    , m_clicks(tray.activated.subscribe([this](int x, int y, const QString& token) { openPanel(x, y, token); }))
    , m_choices(tray.menuActivated.subscribe([this](int id) { carryOut(id); }))
{
    connect(&m_coordinator, &AwakeCoordinator::evaluated, this, &TrayPresenter::update);
    m_hostDeadline = clock.after(hostPatience, [this] {
        m_hostDeadline.reset();
        if (!m_tray.hasHost())
            qCInfo(logSystem, "no panel shows the tray item; the application goes on without it");
    });
    update();
}

void TrayPresenter::setIsPanelOpen(bool isOpen)
{
    m_isPanelOpen = isOpen;
    update();
}

void TrayPresenter::update()
{
    TrayAppearance appearance;
    appearance.imageName = imageName(m_coordinator);
    if (!m_isPanelOpen) {
        // Trays list their items by it, and screen readers say it. Without a tooltip, Xfce's would show it as one.
        appearance.title = u"Tarvik — "_s + m_coordinator.title();
        appearance.tooltipTitle = appearance.title;
        appearance.tooltipBody = joined(m_coordinator.statusSubtitle(), m_coordinator.statusDetails());
    }
    m_tray.setAppearance(appearance);
    m_tray.setMenu(menu());
}

TrayMenu TrayPresenter::menu() const
{
    TrayMenuEntry statusLine = command(Entry::status, m_coordinator.statusReason());
    statusLine.isEnabled = false;
    TrayMenuEntry onOffSwitch = command(Entry::onOff, u"Tarvik"_s);
    onOffSwitch.isChecked = m_settings.isEnabled();
    return {
        command(Entry::openPanel, QCoreApplication::translate("TrayPresenter", "Open Tarvik…")),
        statusLine,
        separator(Entry::separatorAboveSwitch),
        onOffSwitch,
        sessionEntry(),
        command(Entry::lockAndLeave, QCoreApplication::translate("TrayPresenter", "Lock & leave")),
        separator(Entry::separatorAboveSettings),
        command(Entry::openSettings, QCoreApplication::translate("TrayPresenter", "Settings…")),
        command(Entry::quit, QCoreApplication::translate("TrayPresenter", "Quit Tarvik")),
    };
}

TrayMenuEntry TrayPresenter::sessionEntry() const
{
    const bool isRunning = m_coordinator.isTimedSessionActive();
    TrayMenuEntry entry = command(Entry::session, SessionChoices::title(isRunning));
    int id = Entry::firstLength;
    for (const SessionChoices::Length& length : SessionChoices::lengths())
        entry.entries.push_back(command(id++, length.text));
    if (isRunning) {
        entry.entries.push_back(separator(Entry::separatorAboveCancel));
        entry.entries.push_back(command(Entry::cancelTimer, SessionChoices::cancel()));
    }
    return entry;
}

void TrayPresenter::openPanel(int x, int y, const QString& activationToken)
{
    if (onOpenPanel)
        onOpenPanel(x, y, activationToken);
}

void TrayPresenter::carryOut(int id)
{
    switch (id) {
    case Entry::openPanel:
        // Menus do not tell where they were.
        openPanel(0, 0, {});
        return;
    case Entry::onOff:
        m_settings.setIsEnabled(!m_settings.isEnabled());
        return;
    case Entry::cancelTimer:
        m_coordinator.setTimedSession({});
        return;
    case Entry::lockAndLeave:
        call(onLock);
        return;
    case Entry::openSettings:
        call(onOpenSettings);
        return;
    case Entry::quit:
        call(onQuit);
        return;
    default:
        break;
    }
    const QList<SessionChoices::Length> lengths = SessionChoices::lengths();
    const int index = id - Entry::firstLength;
    if (index >= 0 && index < lengths.size())
        m_coordinator.setTimedSession(lengths[index].minutes);
}

} // namespace Tarvik
