// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/design/ApplicationIconProvider.h"

#include <QIcon>
#include <QPainter>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

/// Names with an ending are wrong, but not rare.
QString withoutEnding(const QString& name)
{
    for (const auto& ending : {".png"_L1, ".svg"_L1, ".xpm"_L1}) {
        if (name.endsWith(ending))
            return name.chopped(ending.size());
    }
    return name;
}

QIcon iconOf(const QString& name)
{
    return name.startsWith(u'/') ? QIcon(name) : QIcon::fromTheme(withoutEnding(name));
}

/// A frame in a grey that is seen on light and on dark.
QPixmap frame(const QSize& size)
{
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double unit = size.width() / 24.0;
    painter.setPen(QPen(QColor(0x8a, 0x8d, 0x8f), 1.5 * unit));
    const double margin = 4 * unit;
    painter.drawRoundedRect(QRectF({}, QSizeF(size)).adjusted(margin, margin, -margin, -margin), 3 * unit, 3 * unit);
    return picture;
}

} // namespace

ApplicationIconProvider::ApplicationIconProvider()
    : QQuickImageProvider(QQuickImageProvider::Pixmap)
{
    // For a desktop that names no theme: the one that has the most of the names that desktops have agreed on.
    if (QIcon::fallbackThemeName().isEmpty())
        QIcon::setFallbackThemeName(u"Adwaita"_s);
}

QPixmap ApplicationIconProvider::requestPixmap(const QString& id, QSize* size, const QSize& requestedSize)
{
    const QSize wanted = requestedSize.isEmpty() ? QSize(24, 24) : requestedSize;
    const QString name = QUrl::fromPercentEncoding(id.toUtf8());
    QPixmap picture = iconOf(name).pixmap(wanted, 1);
    if (picture.isNull())
        picture = QIcon::fromTheme(u"application-x-executable"_s).pixmap(wanted, 1);
    if (picture.isNull())
        picture = frame(wanted);
    *size = picture.size();
    return picture;
}

} // namespace Tarvik
