// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/ApplicationAdaptor.h"

namespace Tarvik {

void ApplicationAdaptor::Activate(const QVariantMap& platformData)
{
    if (onActivate)
        onActivate(platformData);
}

void ApplicationAdaptor::Open(const QStringList&, const QVariantMap& platformData)
{
    Activate(platformData);
}

void ApplicationAdaptor::ActivateAction(const QString&, const QVariantList&, const QVariantMap& platformData)
{
    Activate(platformData);
}

} // namespace Tarvik
