// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopEntry.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik::DesktopEntry {

using namespace Qt::StringLiterals;

namespace {

/// The characters that have an escape sequence in a string, and the letters of these.
constexpr std::array<std::pair<QChar, QChar>, 4> escapes{{
    {u'\\', u'\\'},
    {u'\n', u'n'},
    {u'\t', u't'},
    {u'\r', u'r'},
}};

QString quoted(const QString& argument)
{
    static const auto reserved = u" \t\n\"'\\><~|&;$*?#()`"_s;
    const bool isPlain
        = !argument.isEmpty() && std::ranges::none_of(argument, [](QChar c) { return reserved.contains(c); });
    QString text;
    for (const QChar c : argument) {
        if (u"\"`$\\"_s.contains(c))
            text += u'\\';
        text += c;
    }
    // A percent sign starts a field code, quoted or not.
    text.replace(u'%', "%%"_L1);
    return isPlain ? text : u'"' + text + u'"';
}

} // namespace

QMap<QString, QString> parse(const QByteArray& bytes)
{
    QMap<QString, QString> keys;
    bool inGroup = false;
    for (const QByteArray& raw : bytes.split('\n')) {
        const QString line = QString::fromUtf8(raw).trimmed();
        if (line.startsWith(u'[')) {
            inGroup = line == "[Desktop Entry]"_L1;
            continue;
        }
        const auto equals = line.indexOf(u'=');
        if (!inGroup || line.startsWith(u'#') || equals <= 0)
            continue;
        keys.insert(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
    }
    return keys;
}

QString encoded(QString text)
{
    for (const auto& [character, letter] : escapes)
        text.replace(character, QString(u'\\') + letter);
    // Blanks at the ends of a value are cut off.
    if (text.startsWith(u' '))
        text.replace(0, 1, u"\\s"_s);
    if (text.endsWith(u' '))
        text.replace(text.size() - 1, 1, u"\\s"_s);
    return text;
}

QString decoded(const QString& value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != u'\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        const QChar letter = value[++i];
        const auto* const escape = std::ranges::find(escapes, letter, &std::pair<QChar, QChar>::second);
        if (letter == u's')
            text += u' ';
        else if (escape != escapes.end())
            text += escape->first;
        else
            text += u'\\' + QString(letter);
    }
    return text;
}

QString execValue(const QStringList& command)
{
    QStringList arguments;
    for (const QString& argument : command)
        arguments.append(quoted(argument));
    return encoded(arguments.join(u' '));
}

} // namespace Tarvik::DesktopEntry
