// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// The file format of the Desktop Entry Specification.
namespace Tarvik::DesktopEntry {

/// The keys of the group "Desktop Entry" and their values as they stand in the file. The last of several lines for one
/// key counts; what is no line of the format is passed over.
QMap<QString, QString> parse(const QByteArray& bytes);

/// A value of type string: what stands in the file, and what it means.
QString encoded(QString text);
QString decoded(const QString& value);

/// The value of the key "Exec" that runs `command`, a program and its arguments.
QString execValue(const QStringList& command);

} // namespace Tarvik::DesktopEntry
