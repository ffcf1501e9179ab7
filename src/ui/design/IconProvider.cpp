// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/design/IconProvider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace Tarvik {

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize)
{
    const QString name = id.section(u'/', 0, 0);
    const QString color = id.section(u'/', 1, 1);
    QFile file(u":/icons/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QSvgRenderer renderer(file.readAll().replace("currentColor", '#' + color.toLatin1()));
    QImage image(requestedSize.isEmpty() ? renderer.defaultSize() : requestedSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    *size = image.size();
    return image;
}

} // namespace Tarvik
