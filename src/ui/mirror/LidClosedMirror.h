// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"

namespace Tarvik {

/// How the running Tarvik keeps the computer running with its lid closed, and how its background helper is doing. A
/// request that fails is logged; what the user should know of one comes with `lastHelperError`.
class LidClosedMirror : public Tarvik::PropertyMirror {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    // clang-format off
    Q_PROPERTY(bool clamshellActive READ clamshellActive NOTIFY clamshellActiveChanged)
    Q_PROPERTY(bool helperInstalled READ helperInstalled NOTIFY helperInstalledChanged)
    Q_PROPERTY(bool helperNeedsApproval READ helperNeedsApproval NOTIFY helperNeedsApprovalChanged)
    Q_PROPERTY(QString lastHelperError READ lastHelperError NOTIFY lastHelperErrorChanged)
    Q_PROPERTY(bool hasLid READ hasLid NOTIFY hasLidChanged)
    // clang-format on

public:
    explicit LidClosedMirror(const QDBusConnection& bus);

    bool clamshellActive() const { return value("clamshellActive").toBool(); }
    bool helperInstalled() const { return value("helperInstalled").toBool(); }
    bool helperNeedsApproval() const { return value("helperNeedsApproval").toBool(); }
    /// Also a confirmation; empty when there is nothing to tell.
    QString lastHelperError() const { return value("lastHelperError").toString(); }
    /// Also while that is not known.
    bool hasLid() const { return value("hasLid").toBool(); }

    /// Installs the helper or, where it lacks the approval only, shows how to give it.
    Q_INVOKABLE void installHelper();
    Q_INVOKABLE void reinstallHelper();
    /// For the user who comes back from approving the helper, of which nobody tells.
    void refreshHelperStatus();
    /// The introduction shall not come by itself again.
    Q_INVOKABLE void finishOnboarding();
    /// Ends Tarvik and starts it anew.
    Q_INVOKABLE void relaunch();

Q_SIGNALS:
    void clamshellActiveChanged();
    void helperInstalledChanged();
    void helperNeedsApprovalChanged();
    void lastHelperErrorChanged();
    void hasLidChanged();
};

} // namespace Tarvik
