// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookFiles.h"

#include <QFile>

#include <cstdio>
#include <string_view>

/// HookInstaller install|uninstall AGENT HOME TOOL: edits the agent's hook configuration as Tarvik does.
int main(int argumentCount, char** arguments)
{
    using namespace Tarvik;
    if (argumentCount != 5) {
        std::fputs("usage: HookInstaller install|uninstall AGENT HOME TOOL\n", stderr);
        return 2;
    }
    const std::string_view action = arguments[1];
    const HookSpec* const spec = HookSpec::find(arguments[2]);
    const QString home = QFile::decodeName(arguments[3]);
    if (spec == nullptr || (action != "install" && action != "uninstall")) {
        std::fputs("HookInstaller: There is no such agent or action.\n", stderr);
        return 2;
    }
    const HookFiles files(home, QFile::decodeName(arguments[4]));
    const bool isDone = action == "install" ? files.install(*spec) : files.uninstall(*spec);
    return isDone ? 0 : 1;
}
