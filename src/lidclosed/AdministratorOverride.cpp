// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/AdministratorOverride.h"

#include "core/Logging.h"
#include "platform/SleepControl.h"

#include <QPointer>

#include <utility>

namespace Tarvik {

AdministratorOverride::AdministratorOverride(SleepControl& sleepControl)
    : m_sleepControl(sleepControl)
{
}

AdministratorOverride::~AdministratorOverride() = default;

void AdministratorOverride::take(bool mayAskAgain)
{
    m_isWanted = true;
    if (m_override || m_isAsking || (m_wasDenied && !mayAskAgain))
        return;
    m_isAsking = true;
    // The prompt may outlive the application's wish, and this object.
    m_sleepControl.takeOverride([self = QPointer(this)](std::unique_ptr<SleepOverride> granted, const QString& error) {
        if (self)
            self->receive(std::move(granted), error);
    });
}

void AdministratorOverride::giveBack()
{
    m_isWanted = false;
    m_override.reset();
}

void AdministratorOverride::receive(std::unique_ptr<SleepOverride> granted, const QString& error)
{
    m_isAsking = false;
    m_wasDenied = granted == nullptr;
    if (!granted) {
        qCCritical(logSystem, "pmset disablesleep failed: %ls", qUtf16Printable(error));
        return;
    }
    if (!m_isWanted)
        return;
    granted->onLost = [this] { noticeLoss(); };
    m_override = std::move(granted);
    Q_EMIT changed();
}

void AdministratorOverride::noticeLoss()
{
    m_wasDenied = true;
    m_override.reset();
    Q_EMIT changed();
}

} // namespace Tarvik
