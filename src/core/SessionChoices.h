// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

/// The timed sessions that the panel and the tray item's menu offer, and what both say of them.
namespace Tarvik::SessionChoices {

struct Length {
    int minutes;
    /// In the language of the user.
    QString text;
};

QList<Length> lengths();
/// Of the entry that leads to the lengths.
QString title(bool isRunning);
/// Of the entry that ends a running session.
QString cancel();

} // namespace Tarvik::SessionChoices
