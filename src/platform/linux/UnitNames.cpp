// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/UnitNames.h"

#include <QRegularExpression>

namespace Tarvik {

using namespace Qt::StringLiterals;

QString UnitNames::unescaped(const QString& text)
{
    if (!text.contains(u'\\'))
        return text;
    const QByteArray escaped = text.toUtf8();
    QByteArray bytes;
    bytes.reserve(escaped.size());
    for (qsizetype i = 0; i < escaped.size(); ++i) {
        const QByteArray digits = escaped.mid(i, 2) == "\\x" ? escaped.mid(i + 2, 2) : QByteArray();
        bool isEscape = false;
        const uint value = digits.size() == 2 ? digits.toUInt(&isEscape, 16) : 0;
        bytes += isEscape ? static_cast<char>(value) : escaped[i];
        if (isEscape)
            i += 3;
    }
    return QString::fromUtf8(bytes);
}

std::optional<QString> UnitNames::desktopId(const QString& unitName)
{
    // app[-<launcher>]-<id>-<number>.scope, app[-<launcher>]-<id>@<instance>.service
    static const QRegularExpression scope(u"^app-(?:[[:alnum:]]+-)?(.+?)-[[:alnum:]]*\\.scope$"_s);
    static const QRegularExpression service(u"^app-(?:[[:alnum:]]+-)?(.+?)(?:@[[:alnum:]]*|-autostart)?\\.service$"_s);
    static const QRegularExpression snap(
        u"^snap\\.([^.]+)\\.(.+)-[[:xdigit:]]{8}(?:-?[[:xdigit:]]{4}){3}-?[[:xdigit:]]{12}\\.scope$"_s);

    if (const auto match = snap.match(unitName); match.hasMatch())
        return match.captured(1) + u'_' + match.captured(2);
    for (const auto* expression : {&scope, &service}) {
        const auto match = expression->match(unitName);
        if (!match.hasMatch())
            continue;
        QString id = unescaped(match.captured(1));
        if (id.endsWith(".desktop"_L1))
            id.chop(8);
        if (!id.isEmpty())
            return id;
    }
    return std::nullopt;
}

} // namespace Tarvik
