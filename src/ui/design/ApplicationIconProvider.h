// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickImageProvider>

namespace Tarvik {

/// The icons of applications: "image://applications/ICON", where ICON is a name in the icon theme or the absolute path
/// of a picture, percent-encoded. What cannot be found looks like any program.
class ApplicationIconProvider final : public QQuickImageProvider {
public:
    ApplicationIconProvider();

    QPixmap requestPixmap(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace Tarvik
