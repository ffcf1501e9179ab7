// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/BackgroundHelper.h"

#include "core/SettingsStore.h"
#include "lidclosed/HelperManager.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto lastHelperBuildKey = u"lastHelperBuild"_s;

} // namespace

BackgroundHelper::BackgroundHelper(HelperManager& manager, SettingsStore& store, QString build)
    : m_manager(manager)
    , m_store(store)
    , m_build(std::move(build))
{
    connect(&m_manager, &HelperManager::statusChanged, this, &BackgroundHelper::noticeStatus);
    noticeStatus();
}

bool BackgroundHelper::isUsable() const
{
    return m_manager.status() == HelperStatus::enabled;
}

void BackgroundHelper::setLastError(const QString& error)
{
    if (std::exchange(m_lastError, error) != error)
        Q_EMIT changed();
}

void BackgroundHelper::refreshStatus()
{
    if (m_isKnown && !m_isChanging)
        takeStatus();
    m_manager.refresh();
}

void BackgroundHelper::noticeStatus()
{
    if (!m_manager.status())
        return;
    if (std::exchange(m_isKnown, true)) {
        if (m_isChanging)
            readStatus();
        else
            takeStatus();
        return;
    }
    readStatus();
    m_wasUsable = m_isInstalled;
    checkBuild();
    Q_EMIT evaluationNeeded();
}

void BackgroundHelper::takeStatus()
{
    readStatus();
    if (!std::exchange(m_wasUsable, m_isInstalled))
        announceUsable();
}

void BackgroundHelper::readStatus()
{
    m_isInstalled = isUsable();
    m_needsApproval = m_manager.status() == HelperStatus::requiresApproval;
    Q_EMIT changed();
}

void BackgroundHelper::announceUsable()
{
    if (!m_isInstalled)
        return;
    Q_EMIT evaluationNeeded();
    Q_EMIT restartNeeded();
}

void BackgroundHelper::checkBuild()
{
    if (m_build.isEmpty() || m_store.string(lastHelperBuildKey) == m_build)
        return;
    // Before the helper is asked, so that it is asked once.
    rememberBuild();
    if (!isUsable())
        return;
    m_manager.version([this](bool ok, const QString&) {
        if (!ok)
            reinstall();
    });
}

void BackgroundHelper::rememberBuild()
{
    m_store.setString(lastHelperBuildKey, m_build);
}

void BackgroundHelper::install()
{
    if (!m_isKnown || m_isChanging)
        return;
    if (m_manager.status() == HelperStatus::requiresApproval) {
        askForApproval(
            QCoreApplication::translate("BackgroundHelper", "Approve Tarvik in System Settings ▸ Login Items."));
        readStatus();
        return;
    }
    m_isChanging = true;
    m_manager.registerService(
        [this, wasUsable = m_wasUsable](const QString& error) { finishInstall(wasUsable, error); });
}

void BackgroundHelper::finishInstall(bool wasUsable, const QString& error)
{
    m_isChanging = false;
    if (!error.isEmpty()) {
        setLastError(error);
        Q_EMIT evaluationNeeded();
        return;
    }
    readStatus();
    m_wasUsable = m_isInstalled;
    if (m_needsApproval) {
        askForApproval(
            QCoreApplication::translate("BackgroundHelper", "Approve Tarvik in System Settings ▸ Login Items."));
        Q_EMIT evaluationNeeded();
        return;
    }
    setLastError({});
    if (wasUsable)
        Q_EMIT evaluationNeeded();
    else
        announceUsable();
}

void BackgroundHelper::reinstall()
{
    if (!m_isKnown || m_isChanging)
        return;
    m_isChanging = true;
    m_manager.reinstall([this](const QString& error) { finishReinstall(error); });
}

void BackgroundHelper::finishReinstall(const QString& error)
{
    m_isChanging = false;
    readStatus();
    rememberBuild();
    if (!error.isEmpty()) {
        setLastError(error);
    } else if (m_needsApproval) {
        askForApproval(QCoreApplication::translate(
            "BackgroundHelper", "Approve Tarvik in System Settings ▸ Login Items, then try again."));
    } else {
        setLastError(QCoreApplication::translate("BackgroundHelper", "Background helper reinstalled."));
    }
    Q_EMIT evaluationNeeded();
}

void BackgroundHelper::askForApproval(const QString& text)
{
    setLastError(text);
    Q_EMIT approvalNeeded();
}

} // namespace Tarvik
