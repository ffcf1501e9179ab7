// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "why/WhyReport.h"

/// A report as one text, for a terminal: nothing that came from elsewhere can steer it.
namespace Tarvik::WhyDescription {

/// For people: the sentences, one a line, an empty line, and lists of everything that they were made of.
QString text(const WhyReport& report);

/// One JSON object on one line; its keys are described in com.morvanta.Tarvik.Why1.xml.
QString json(const WhyReport& report);

} // namespace Tarvik::WhyDescription
