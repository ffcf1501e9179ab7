// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace Tarvik {

/// What was copied from one of the windows. Others get it from this process when they paste it, and from nobody when
/// this process has ended, unless a clipboard manager keeps it.
class CopiedText : public QObject {
    Q_OBJECT

public:
    /// Needs the application object.
    CopiedText();

    /// It can be pasted, and would be lost with this process.
    bool needsThisProcess() const;

Q_SIGNALS:
    /// Somebody has copied something.
    void changed();
};

} // namespace Tarvik
