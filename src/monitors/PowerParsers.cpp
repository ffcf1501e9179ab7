// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/PowerParsers.h"

#include <QStringList>

#include <algorithm>

namespace Tarvik::PowerParsers {

using namespace Qt::StringLiterals;

namespace {

/// Other white space, a carriage return for one, is part of the value.
QStringView trimSpacesAndTabs(QStringView text)
{
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

} // namespace

bool isSleepDisabled(const QString& pmsetG)
{
    const QString flag = u"sleepdisabled"_s;
    const QStringList lines = pmsetG.toLower().split(u'\n', Qt::SkipEmptyParts);
    const auto line = std::ranges::find_if(lines, [&](const QString& candidate) { return candidate.contains(flag); });
    if (line == lines.end())
        return false;
    const QString value = QString{*line}.remove(flag);
    return trimSpacesAndTabs(value) == u"1"_s;
}

} // namespace Tarvik::PowerParsers
