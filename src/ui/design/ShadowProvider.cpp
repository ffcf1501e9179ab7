// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/design/ShadowProvider.h"

#include <QtMath>

#include <algorithm>

namespace Tarvik {

namespace {

constexpr int darkest = 70;
constexpr int largest = 200;

} // namespace

QImage ShadowProvider::requestImage(const QString& id, QSize* size, const QSize&)
{
    const int extent = std::clamp(id.section(u'/', 0, 0).toInt(), 1, largest);
    const int radius = std::clamp(id.section(u'/', 1, 1).toInt(), 0, largest);
    const int border = extent + radius;
    QImage image(2 * border + 1, 2 * border + 1, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const double distance = std::hypot(std::abs(x - border), std::abs(y - border)) - radius;
            const double strength = std::clamp(1 - distance / extent, 0.0, 1.0);
            image.setPixel(x, y, qPremultiply(qRgba(0, 0, 0, qRound(darkest * strength * strength * strength))));
        }
    }
    *size = image.size();
    return image;
}

} // namespace Tarvik
