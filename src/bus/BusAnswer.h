// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusError>
#include <QVariantList>

#include <functional>
#include <type_traits>

namespace Tarvik {

/// What somebody who calls Tarvik over the bus is told: values, or an error with a message for people, or either later.
struct BusAnswer {
    QVariantList values = {};
    QDBusError::ErrorType error = QDBusError::NoError;
    QString message = {};
    /// What is to be told is not known yet: to be called with what takes it as soon as it is.
    std::function<void(std::function<void(const BusAnswer& answer)> tell)> later = {};

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
