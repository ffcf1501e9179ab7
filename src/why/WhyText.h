// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "why/WhyReport.h"

/// A report in plain sentences. They hold names that other programs gave themselves.
namespace Tarvik::WhyText {

/// Why this computer is awake, in one sentence, and when it would sleep if nothing holds it.
QString awake(const WhyReport& report);

/// What else there is to know about that: what Tarvik does if it is not that, and what may come as a surprise.
QStringList remarks(const WhyReport& report);

/// When it slept last, and what Tarvik was doing then, in one sentence.
QString slept(const WhyReport& report);

/// What one service does to a computer that nobody uses: "GNOME suspends it after 20 min without activity".
QString idleRule(const IdleSleepRule& rule);

/// The names, each once; of many, the first, and how many more there are.
QString listed(const QStringList& names);

/// The local time of day, with the date if that is another day than that of `now`.
QString moment(TimePoint at, TimePoint now);

/// A text of others, cut where it would push everything else aside.
QString shortened(const QString& text);

} // namespace Tarvik::WhyText
