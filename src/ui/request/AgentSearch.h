// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AgentPreset.h"

#include <QList>
#include <QString>

namespace Tarvik::AgentSearch {

/// Those of the rows, in their order, whose label contains what is searched for, in whatever case, or one of whose
/// process names does. A search for nothing but blanks finds all of them.
QList<AgentPreset> matching(const QList<AgentPreset>& rows, const QString& search);

} // namespace Tarvik::AgentSearch
