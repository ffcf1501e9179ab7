// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HelperWire.h"

#include <QString>

/// Who the background helper is, for the application and for the helper itself.
namespace Tarvik::TarvikHelper {

/// The name under which the helper's launch configuration hands it its label.
inline constexpr auto machLabelKey = HelperWire::machLabelKey;

/// The label that the helper uses when it is handed none.
inline constexpr auto defaultMachLabel = HelperWire::defaultMachLabel;

/// The label of the helper that belongs to an application, which is its name on the bus: the application's identifier
/// and ".helper". An application without an identifier has the default one, which is not that of ours: it is written
/// in small letters.
inline QString machLabel(const QString& bundleIdentifier)
{
    return bundleIdentifier.isEmpty() ? QString::fromLatin1(defaultMachLabel)
                                      : bundleIdentifier + QStringLiteral(".helper");
}

} // namespace Tarvik::TarvikHelper
