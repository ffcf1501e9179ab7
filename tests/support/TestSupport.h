// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTest>

/// Every test class calls this in its init(): a warning that the test did not announce with expectLog() fails it.
#define TARVIK_FAIL_ON_WARNINGS() QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")))

// What is waited for needs other processes, which a busy machine may not let run for seconds at a time. A check that
// fails takes three times as long, which is still less than what ends a hanging test.
#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, Tarvik::patience)
#define QTRY_VERIFY2(condition, message) QTRY_VERIFY2_WITH_TIMEOUT(condition, message, Tarvik::patience)
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, Tarvik::patience)

namespace Tarvik {

/// In milliseconds.
constexpr int patience = 20'000;

/// Announces one log line (text as logged, without its category); the test fails if it does not come.
void expectLog(QtMsgType type, const QString& pattern);

/// As long as it lives, calls that no slot takes are no warning: some versions of Qt warn of them, and our programs
/// leave that out of their log.
class CallsThatNoSlotTakes {
public:
    CallsThatNoSlotTakes();
    ~CallsThatNoSlotTakes();
    CallsThatNoSlotTakes(const CallsThatNoSlotTakes&) = delete;
    CallsThatNoSlotTakes& operator=(const CallsThatNoSlotTakes&) = delete;
};

} // namespace Tarvik
