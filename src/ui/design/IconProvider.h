// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickImageProvider>

namespace Tarvik {

/// Our line icons in any colour: "image://icons/NAME/COLOR", where COLOR is rrggbb. They are drawn in currentColor.
class IconProvider final : public QQuickImageProvider {
public:
    IconProvider()
        : QQuickImageProvider(QQuickImageProvider::Image)
    {
    }

    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace Tarvik
