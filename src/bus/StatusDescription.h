// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tarvik {

class StatusObject;

/// The whole status in one text, for a terminal: nothing that came from elsewhere can steer it.
namespace StatusDescription {

/// For people, several lines; times of day in the local time zone.
QString text(const StatusObject& status);

/// One JSON object on one line, with the properties of com.morvanta.Tarvik.Status1 under their names with a small first
/// letter.
QString json(const StatusObject& status);

} // namespace StatusDescription

} // namespace Tarvik
