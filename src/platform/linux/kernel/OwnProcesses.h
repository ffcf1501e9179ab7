// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// The processes of procfs, proc(5).
namespace Tarvik::OwnProcesses {

/// The name of a process of any user, at most 15 characters of the file that it runs unless it has given itself another
/// one; empty when there is no such process.
QString name(qint64 process);

/// Of all processes of the user of this one, in no order.
QStringList names();

/// What names() tells, for those who are told by somebody.
using Names = std::function<QStringList()>;

} // namespace Tarvik::OwnProcesses
