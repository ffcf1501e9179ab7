// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusError>
#include <QVariantList>

#include <type_traits>

namespace Tarvik {

/// What somebody who calls Tarvik over the bus is told: values, or an error with a message for people.
struct BusAnswer {
    QVariantList values = {};
    QDBusError::ErrorType error = QDBusError::NoError;
    QString message = {};

    bool isRefusal() const { return error != QDBusError::NoError; }

    static BusAnswer refusal(QDBusError::ErrorType error, const QString& message)
    {
        return {.values = {}, .error = error, .message = message};
    }

    static BusAnswer invalidArguments(const QString& message) { return refusal(QDBusError::InvalidArgs, message); }

    /// What a function returns: nothing, a value, or an answer already.
    template <typename Function>
    static BusAnswer of(const Function& function)
    {
        using Result = std::invoke_result_t<Function>;
        if constexpr (std::is_void_v<Result>) {
            function();
            return {};
        } else if constexpr (std::is_same_v<Result, BusAnswer>) {
            return function();
        } else {
            return {.values = {QVariant::fromValue(function())}};
        }
    }
};

} // namespace Tarvik
