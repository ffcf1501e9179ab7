// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/TerminalText.h"

#include "base/PlainText.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace Tarvik::TerminalText {

namespace {

/// That a terminal takes for a text; Chinese and Japanese characters take two each.
qsizetype columns(const QString& text)
{
    return text.size() + std::ranges::count_if(text, [](QChar character) {
        const QChar::Script script = character.script();
        return script == QChar::Script_Han || script == QChar::Script_Hiragana || script == QChar::Script_Katakana
            || script == QChar::Script_Hangul || character.unicode() == 0x30fc;
    });
}

/// What would steer a terminal in the form of an escape. None of it can stand outside a string.
QString escaped(const QString& json)
{
    QString result;
    for (const QChar character : json) {
        if (PlainText::isControl(character.unicode()))
            result += u"\\u%1"_s.arg(character.unicode(), 4, 16, QChar(u'0'));
        else
            result += character;
    }
    return result;
}

} // namespace

void Table::add(const QString& label, const QStringList& values)
{
    for (qsizetype index = 0; index < values.size(); ++index)
        m_rows.append({index == 0 ? label : QString(), values[index]});
}

QStringList Table::lines() const
{
    constexpr qsizetype gap = 2;
    qsizetype width = 0;
    for (const auto& [label, value] : m_rows)
        width = std::max(width, columns(label) + gap);
    QStringList lines;
    for (const auto& [label, value] : m_rows)
        lines.append(u"  "_s + label + QString(width - columns(label), u' ') + value);
    return lines;
}

QString duration(double seconds)
{
    const auto whole = static_cast<qint64>(std::clamp(std::ceil(seconds), 0.0, 1e9));
    if (whole < 60)
        return QCoreApplication::translate("TerminalText", "%1 s").arg(whole);
    if (whole < 3600)
        return QCoreApplication::translate("TerminalText", "%1 min").arg((whole + 59) / 60);
    return QCoreApplication::translate("TerminalText", "%1 h %2 min").arg(whole / 3600).arg(whole % 3600 / 60);
}

QString joined(const QStringList& lines)
{
    QString text;
    for (const QString& line : lines)
        text += QString::fromStdString(PlainText::printable(line.toStdString())) + u'\n';
    return text.chopped(1);
}

QString json(const QJsonObject& object)
{
    return escaped(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

} // namespace Tarvik::TerminalText
