// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "support/TestSupport.h"

#include <QLoggingCategory>
#include <QRegularExpression>

namespace Tarvik {

void expectLog(QtMsgType type, const QString& pattern)
{
    QTest::ignoreMessage(type, QRegularExpression(pattern));
}

CallsThatNoSlotTakes::CallsThatNoSlotTakes()
{
    QLoggingCategory::setFilterRules(QStringLiteral("qt.dbus.integration.warning=false"));
}

CallsThatNoSlotTakes::~CallsThatNoSlotTakes()
{
    QLoggingCategory::setFilterRules({});
}

} // namespace Tarvik
