// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "HomeDirectory.h"

#include <pwd.h>

#include <cstdio>
#include <memory>

namespace Tarvik {

/// The file itself is read, since getpwuid(3) does not work in a program that is linked statically.
static std::optional<std::string> listedHome(uid_t user, const char* userList)
{
    const auto close = [](std::FILE* file) { std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(userList, "re"), close);
    while (const passwd* entry = file ? fgetpwent(file.get()) : nullptr) {
        if (entry->pw_uid == user && entry->pw_dir[0] == '/')
            return entry->pw_dir;
    }
    return {};
}

std::optional<std::string> homeDirectory(const Environment& environment, const InvokingUser& user, const char* userList)
{
    if (const std::string home = environment("HOME"); !user.isThroughSudo && home.starts_with('/'))
        return home;
    return listedHome(user.user, userList);
}

} // namespace Tarvik
