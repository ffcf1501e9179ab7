// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

/// What is said on a terminal: nothing that came from elsewhere can steer it.
namespace Tarvik::TerminalText {

/// Lines of a label and a value; further values of one label stand below each other.
class Table final {
public:
    void add(const QString& label, const QStringList& values);

    QStringList lines() const;

private:
    QList<std::pair<QString, QString>> m_rows;
};

/// "40 s", "20 min", "2 h 5 min"; what has begun counts as whole.
QString duration(double seconds);

/// The lines as one text without a line feed at the end.
QString joined(const QStringList& lines);

/// The object on one line.
QString json(const QJsonObject& object);

} // namespace Tarvik::TerminalText
