// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QTest>

/// Every test class calls this in its init(): a warning that the test did not announce with expectLog() fails it.
#define TARVIK_FAIL_ON_WARNINGS() QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")))

namespace Tarvik {

/// Announces one log line (text as logged, without its category); the test fails if it does not come.
inline void expectLog(QtMsgType type, const QString& pattern)
{
    QTest::ignoreMessage(type, QRegularExpression(pattern));
}

} // namespace Tarvik
