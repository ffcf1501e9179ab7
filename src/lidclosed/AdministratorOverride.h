// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <memory>

namespace Tarvik {

class SleepControl;
class SleepOverride;

/// The override as an administrator's: asked for where the background helper cannot be, which may show the user a
/// prompt for a password.
class AdministratorOverride : public QObject {
    Q_OBJECT

public:
    /// `sleepControl` must outlive the object.
    explicit AdministratorOverride(SleepControl& sleepControl);
    ~AdministratorOverride() override;

    bool isHeld() const { return m_override != nullptr; }

    /// Asks for the override unless it is held or being asked for already. After a refusal or a loss it is only asked
    /// for again with `mayAskAgain`, so that the user is not asked every minute.
    void take(bool mayAskAgain);

    /// Ends the override; one that is granted only now ends at once.
    void giveBack();

Q_SIGNALS:
    /// It is held, or has been lost. Not emitted by `giveBack()`.
    void changed();

private:
    void receive(std::unique_ptr<SleepOverride> granted, const QString& error);
    void noticeLoss();

    SleepControl& m_sleepControl;
    std::unique_ptr<SleepOverride> m_override;
    bool m_isWanted = false;
    bool m_isAsking = false;
    bool m_wasDenied = false;
};

} // namespace Tarvik
