// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "Log.h"

#include <systemd/sd-daemon.h>

#include <cstdio>
#include <string>

namespace Tarvik {

static void write(const char* priority, std::string_view message)
{
    std::string line(priority);
    // What other services say may have several lines; all are of this priority.
    for (const char character : message)
        line += character == '\n' ? ' ' : character;
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void logInfo(std::string_view message)
{
    write(SD_INFO, message);
}

void logWarning(std::string_view message)
{
    write(SD_WARNING, message);
}

void logError(std::string_view message)
{
    write(SD_ERR, message);
}

} // namespace Tarvik
