// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/Contrast.h"

#include <algorithm>
#include <cmath>

namespace Tarvik {

namespace {

/// Steps from one end of the lightness to the other.
constexpr int steps = 200;

double linear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

/// Relative, from 0 to 1.
double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// As it will be drawn.
QColor withLightness(const QColor& color, float lightness)
{
    const float hue = std::max(0.0F, color.hslHueF());
    return QColor::fromRgb(QColor::fromHslF(hue, color.hslSaturationF(), lightness).rgb());
}

} // namespace

double Contrast::between(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor Contrast::reached(double least, const QColor& color, const QColor& surface)
{
    const bool isSurfaceLight = between(surface, Qt::black) > between(surface, Qt::white);
    const float step = (isSurfaceLight ? -1.0F : 1.0F) / steps;
    QColor moved = QColor::fromRgb(color.rgb());
    for (float lightness = color.lightnessF() + step; between(moved, surface) < least; lightness += step) {
        if (lightness <= 0 || lightness >= 1)
            return isSurfaceLight ? Qt::black : Qt::white;
        moved = withLightness(color, lightness);
    }
    return moved;
}

QColor Contrast::tint(const QColor& surface, const QColor& color, double share)
{
    const auto mixed = [share](int below, int above) { return qRound(below + (above - below) * share); };
    return {
        mixed(surface.red(), color.red()), mixed(surface.green(), color.green()), mixed(surface.blue(), color.blue())};
}

} // namespace Tarvik
