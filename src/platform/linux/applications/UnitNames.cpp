// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/UnitNames.h"

#include <QUuid>

#include <algorithm>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr auto uuidLength = 36;

bool isAlphanumeric(QStringView text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.isLetterOrNumber(); });
}

/// What stands between `prefix` and `suffix`; empty where one is missing.
QStringView between(QStringView text, QLatin1StringView prefix, QLatin1StringView suffix)
{
    if (!text.startsWith(prefix) || !text.endsWith(suffix))
        return {};
    return text.sliced(prefix.size()).chopped(std::min(suffix.size(), text.size() - prefix.size()));
}

/// Without the last `separator` and the letters and digits behind it; the text as it is where it does not end so.
QStringView withoutInstance(QStringView text, QChar separator)
{
    const qsizetype position = text.lastIndexOf(separator);
    return position >= 0 && isAlphanumeric(text.sliced(position + 1)) ? text.first(position) : text;
}

/// Without the name of the desktop or tool that started the application.
QStringView withoutLauncher(QStringView text)
{
    const qsizetype dash = text.indexOf(u'-');
    const bool hasLauncher = dash > 0 && dash + 1 < text.size() && isAlphanumeric(text.first(dash));
    return hasLauncher ? text.sliced(dash + 1) : text;
}

/// app[-<launcher>]-<id>-<number>.scope
QStringView idOfScope(QStringView unitName)
{
    const QStringView body = between(unitName, "app-"_L1, ".scope"_L1);
    const QStringView name = withoutInstance(body, u'-');
    return name.size() < body.size() ? withoutLauncher(name) : QStringView();
}

/// app[-<launcher>]-<id>[@<instance>|-autostart].service
QStringView idOfService(QStringView unitName)
{
    const QStringView body = between(unitName, "app-"_L1, ".service"_L1);
    return withoutLauncher(body.endsWith("-autostart"_L1) ? body.chopped(10) : withoutInstance(body, u'@'));
}

/// snap.<snap>.<application>-<uuid>.scope
std::optional<QString> idOfSnap(QStringView unitName)
{
    const QStringView body = between(unitName, "snap."_L1, ".scope"_L1);
    const qsizetype dot = body.indexOf(u'.');
    const qsizetype applicationLength = body.size() - dot - 1 - uuidLength - 1;
    if (dot <= 0 || applicationLength <= 0 || QUuid::fromString(body.last(uuidLength)).isNull())
        return {};
    return body.first(dot).toString() + u'_' + body.sliced(dot + 1, applicationLength).toString();
}

} // namespace

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
    if (const auto snap = idOfSnap(unitName))
        return snap;
    const QStringView scopeId = idOfScope(unitName);
    QString id = unescaped((scopeId.isEmpty() ? idOfService(unitName) : scopeId).toString());
    if (id.endsWith(".desktop"_L1))
        id.chop(8);
    return id.isEmpty() ? std::nullopt : std::optional(id);
}

} // namespace Tarvik
