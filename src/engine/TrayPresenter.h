// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/TrayItem.h"

#include <QObject>

#include <functional>
#include <memory>

namespace Tarvik {

class AppSettings;
class AwakeCoordinator;

/// Shows the coordinator's state as the item in the tray and carries out what its menu offers.
class TrayPresenter final : public QObject {
    Q_OBJECT

public:
    /// Everything passed in must outlive the presenter.
    TrayPresenter(AwakeCoordinator& coordinator, AppSettings& settings, TrayItem& tray, Clock& clock);

    /// The panel says all that the item could say of itself, and nothing is to cover it.
    void setIsPanelOpen(bool isOpen);

    /// The item was clicked, see TrayItem::activated, or the panel chosen in its menu, which has no place: 0, 0.
    std::function<void(int x, int y, const QString& activationToken)> onOpenPanel;
    std::function<void()> onLock;
    std::function<void()> onOpenSettings;
    std::function<void()> onQuit;

private:
    void update();
    TrayMenu menu() const;
    TrayMenuEntry sessionEntry() const;
    void openPanel(int x, int y, const QString& activationToken);
    void carryOut(int id);

    AwakeCoordinator& m_coordinator;
    AppSettings& m_settings;
    TrayItem& m_tray;
    Subscription m_clicks;
    Subscription m_choices;
    std::unique_ptr<Timer> m_hostDeadline;
    bool m_isPanelOpen = false;
};

} // namespace Tarvik
