// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"

#include <QVariantMap>

namespace Tarvik::LogindIdleRule {

/// What logind does when every session says that it is idle, by the properties of its manager, logind.conf(5).
IdleSleepRule in(const QVariantMap& manager);

} // namespace Tarvik::LogindIdleRule
