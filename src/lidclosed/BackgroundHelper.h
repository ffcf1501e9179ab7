// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace Tarvik {

class HelperManager;
class SettingsStore;

/// How far the background helper is installed, what the user does about that, and what the user is told of it.
class BackgroundHelper : public QObject {
    Q_OBJECT

public:
    /// As soon as the status is known, a helper that has not been seen by this build of the application must answer, or
    /// is installed anew; `build` is CFBundleVersion. Both must outlive the object.
    BackgroundHelper(HelperManager& manager, SettingsStore& store, QString build);

    /// The system has said how far the helper is installed.
    bool isKnown() const { return m_isKnown; }
    /// Calls to the helper make sense, as the system says now.
    bool isUsable() const;
    /// It is being installed or taken away, so that what the system says may hold for a moment only.
    bool isChanging() const { return m_isChanging; }

    bool isInstalled() const { return m_isInstalled; }
    bool needsApproval() const { return m_needsApproval; }
    /// What the user should know, an error or a confirmation; empty when there is nothing.
    const QString& lastError() const { return m_lastError; }
    void setLastError(const QString& error);

    /// For whenever the user comes back from somewhere else.
    void refreshStatus();

    /// Installs the helper, or asks for its approval where that is all it lacks. Nothing happens before the status is
    /// known, nor while an installation is under way: the user may be looking at a prompt for a password.
    void install();

    /// Takes the helper away and installs it anew; nothing happens when the above does not.
    void reinstall();

Q_SIGNALS:
    /// The status, or what the user is told.
    void changed();
    /// The status is known at last, the helper can be used at last, or its installation has come to an end.
    void evaluationNeeded();
    /// A new helper is only reliably reached by a new process.
    void restartNeeded();
    /// The user is to be shown how to allow the helper.
    void approvalNeeded();

private:
    void noticeStatus();
    void takeStatus();
    void readStatus();
    void checkBuild();
    void rememberBuild();
    void finishInstall(bool wasUsable, const QString& error);
    void finishReinstall(const QString& error);
    void askForApproval(const QString& text);
    void announceUsable();

    HelperManager& m_manager;
    SettingsStore& m_store;
    QString m_build;
    bool m_isKnown = false;
    bool m_isChanging = false;
    bool m_isInstalled = false;
    bool m_needsApproval = false;
    /// As of the last time that somebody looked for it to become usable.
    bool m_wasUsable = false;
    QString m_lastError;
};

} // namespace Tarvik
