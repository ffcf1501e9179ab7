// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UiLauncher.h"

#include <QProcess>

namespace Tarvik {

/// Starts the UI process as a child and notices its end. Destroying the launcher ends the child.
class ProcessUiLauncher final : public UiLauncher {
public:
    /// `executable` is the absolute path of TarvikUi.
    explicit ProcessUiLauncher(const QString& executable);
    ProcessUiLauncher(const ProcessUiLauncher&) = delete;
    ProcessUiLauncher& operator=(const ProcessUiLauncher&) = delete;
    ~ProcessUiLauncher() override;

    bool isInstalled() const override;
    void launch() override;
    void kill() override;

private:
    void reportEnd(const QString& failure);

    QProcess m_process;
};

} // namespace Tarvik
