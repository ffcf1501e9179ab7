// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "monitors/ProcessEntry.h"

#include <QByteArrayView>

#include <vector>

/// Turns the text of the process table into program names. Text is UTF-8.
namespace Tarvik::ProcessParsers {

/// One entry for each line that is not empty, in order; none at all when the text is not valid UTF-8.
std::vector<ProcessEntry> listProcesses(QByteArrayView output);

/// The program names of one command line, which is split at blanks without regard for quotes.
ProgramNames invocationNames(std::string_view fromArgs);

/// The last path component of one word, in lower case and without the suffix of a script.
std::string executableName(std::string_view word);

/// Whether a name as above is that of a script interpreter or launcher, with or without a version behind it.
bool isInterpreter(std::string_view name);

} // namespace Tarvik::ProcessParsers
