// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickImageProvider>

namespace Tarvik {

/// The shadow of a rounded rectangle, to be stretched by a BorderImage: "image://shadows/EXTENT/RADIUS" in pixels.
/// Its borders are EXTENT + RADIUS wide, with one stretchable pixel between them.
class ShadowProvider final : public QQuickImageProvider {
public:
    ShadowProvider()
        : QQuickImageProvider(QQuickImageProvider::Image)
    {
    }

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace Tarvik
