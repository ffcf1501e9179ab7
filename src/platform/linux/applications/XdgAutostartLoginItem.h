// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"
#include "platform/linux/kernel/FileWatch.h"

#include <QStringList>

namespace Tarvik {

/// An entry "com.morvanta.Tarvik.desktop" of the Desktop Application Autostart Specification.
class XdgAutostartLoginItem final : public LoginItem {
public:
    /// `configHome` is XDG_CONFIG_HOME, `systemConfigDirectories` are those of XDG_CONFIG_DIRS, the most important
    /// first; `command` is the absolute path of the program and its arguments.
    XdgAutostartLoginItem(QString configHome, QStringList systemConfigDirectories, QStringList command);

    std::optional<QString> registerItem() override;

    /// Deletes the user's entry, or says "off" in it where a system-wide entry would come into force.
    std::optional<QString> unregisterItem() override;

    bool isEnabled() const override;

private:
    QString userEntry() const;
    QString systemEntry() const;
    QStringList entries() const;
    std::optional<QString> write(const QByteArray& bytes) const;

    QString m_configHome;
    QStringList m_systemConfigDirectories;
    QStringList m_command;
    FileWatch m_watch;
};

} // namespace Tarvik
