// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TrayItem.h"

#include <QStringList>

namespace Tarvik {

/// Keeps what it was told to show.
class FakeTrayItem final : public TrayItem {
public:
    void setAppearance(const TrayAppearance& shown) override { appearance = shown; }
    void setMenu(const TrayMenu& shown) override { menu = shown; }
    bool hasHost() const override { return isHosted; }

    /// The labels of `entries`, "-" for a separator, those below an entry behind it in brackets.
    static QString text(const TrayMenu& entries)
    {
        QStringList labels;
        for (const TrayMenuEntry& entry : entries) {
            QString label = entry.isSeparator ? QStringLiteral("-") : entry.label;
            if (!entry.entries.empty())
                label += QStringLiteral(" [") + text(entry.entries) + QStringLiteral("]");
            labels.append(label);
        }
        return labels.join(QStringLiteral(" | "));
    }

    /// The entry with this label; one that is disabled and has no id where there is none.
    TrayMenuEntry entry(const QString& label) const { return find(menu, label); }

    /// The user chooses the entry with this label, if it can be chosen.
    void choose(const QString& label)
    {
        const TrayMenuEntry chosen = entry(label);
        if (chosen.isEnabled && chosen.entries.empty())
            menuActivated(chosen.id);
    }

    TrayAppearance appearance;
    TrayMenu menu;
    bool isHosted = true;

private:
    static TrayMenuEntry find(const TrayMenu& entries, const QString& label)
    {
        for (const TrayMenuEntry& entry : entries) {
            if (entry.label == label)
                return entry;
            const TrayMenuEntry below = find(entry.entries, label);
            if (below.id != 0)
                return below;
        }
        TrayMenuEntry none;
        none.isEnabled = false;
        return none;
    }
};

} // namespace Tarvik
