// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>

#include <functional>

namespace Tarvik {

/// The UI process on the session bus; com.morvanta.TarvikUi.Windows1.xml is the contract.
class WindowsAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.morvanta.TarvikUi.Windows1")

public:
    /// `object` is what is registered on the bus and owns the adaptor.
    explicit WindowsAdaptor(QObject& object)
        : QDBusAbstractAdaptor(&object)
    {
    }

    std::function<void(int x, int y, const QString& activationToken)> onShowPanel;
    std::function<void(int x, int y, const QString& activationToken)> onShowPanelAtTray;
    std::function<void(const QString& activationToken)> onShowSettings;
    std::function<void(const QString& activationToken)> onShowOnboarding;
    std::function<void(const QString& activationToken)> onShowRestartAlert;
    std::function<void(const QString& activationToken)> onShowHelperApproval;

Q_SIGNALS:
    void PanelOpened(int x, int y);
    void PanelClosed();

public Q_SLOTS:
    void ShowPanel(int x, int y, const QString& activationToken);
    void ShowPanelAtTray(int x, int y, const QString& activationToken);
    void ShowSettings(const QString& activationToken);
    void ShowOnboarding(const QString& activationToken);
    void ShowRestartAlert(const QString& activationToken);
    void ShowHelperApproval(const QString& activationToken);
};

} // namespace Tarvik
