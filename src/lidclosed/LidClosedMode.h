// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace Tarvik {

/// Keeps the machine running while its lid is closed.
class LidClosedMode : public QObject {
    Q_OBJECT

public:
    LidClosedMode();
    ~LidClosedMode() override;

    /// The override is on, as far as is known.
    bool clamshellActive() const { return false; }
    bool helperInstalled() const { return false; }
    bool helperNeedsApproval() const { return false; }
    /// What the user should know of the helper, an error or a confirmation; empty when there is nothing.
    QString lastHelperError() const { return {}; }

Q_SIGNALS:
    /// One of the fields above may have changed.
    void changed();
};

} // namespace Tarvik
