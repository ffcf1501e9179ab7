// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The configuration files of KDE's programs, as much as numbers need.
namespace Tarvik::KdeConfig {

/// The number of the key in the group, given as it stands in its file ("[AC][SuspendSession]"); of several files the
/// first one counts that has it.
std::optional<int> number(const QStringList& files, const QString& group, const QString& key);

} // namespace Tarvik::KdeConfig
