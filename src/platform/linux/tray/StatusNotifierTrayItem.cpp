// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/tray/StatusNotifierTrayItem.h"

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto menuPath = u"/MenuBar"_s;

} // namespace

StatusNotifierTrayItem::StatusNotifierTrayItem(
    const QDBusConnection& sessionBus, const QString& iconDirectory, Clock& clock)
    : m_menu(sessionBus, menuPath)
    , m_item(sessionBus, iconDirectory, menuPath)
    , m_registration(sessionBus, clock)
{
    m_menu.onActivated = [this](int id) { menuActivated(id); };
    m_item.onActivate = [this](int x, int y, const QString& activationToken) { activated(x, y, activationToken); };
    m_registration.onHostChange = [this] { hostChanged(); };
}

void StatusNotifierTrayItem::setAppearance(const TrayAppearance& appearance)
{
    m_item.setAppearance(appearance);
}

void StatusNotifierTrayItem::setMenu(const TrayMenu& menu)
{
    m_menu.setMenu(menu);
}

} // namespace Tarvik
