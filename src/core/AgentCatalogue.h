// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AgentPreset.h"

#include <QList>

/// The fixed knowledge of which coding agents and editors are recognised, in the order in which they are listed to the
/// user. Both tables are built on first use and shared for the life of the process.
namespace Tarvik::AgentCatalogue {

/// Command-line agents.
const QList<AgentPreset>& agents();

/// Editors that run their agent inside, so that only their being open can be told.
const QList<AgentPreset>& editors();

} // namespace Tarvik::AgentCatalogue
