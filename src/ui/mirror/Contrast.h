// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QObject>
#include <QtQmlIntegration>

namespace Tarvik {

/// How well colours can be told apart, by the Web Content Accessibility Guidelines (2.1).
class Contrast : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// Contrast ratio, from 1 to 21.
    Q_INVOKABLE static double between(const QColor& one, const QColor& other);

    /// `color` where it contrasts with `surface` by `least` or more. Otherwise, the nearest of its hue that does:
    /// darker on a light surface, lighter on a dark one. Black or white where none does.
    Q_INVOKABLE static QColor reached(double least, const QColor& color, const QColor& surface);

    /// `share` of `color`, from 0 to 1, on `surface`.
    Q_INVOKABLE static QColor tint(const QColor& surface, const QColor& color, double share);
};

} // namespace Tarvik
