// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNames.h"

#include <QStringList>

namespace Tarvik::LidDaemons {

/// The bus names of the daemons that take the lid from logind.
inline QStringList names()
{
    return {BusNames::kdePowerManager,
        BusNames::xfcePowerManager,
        BusNames::matePowerManager,
        BusNames::cinnamonPowerManager,
        BusNames::lxqtSession};
}

} // namespace Tarvik::LidDaemons
