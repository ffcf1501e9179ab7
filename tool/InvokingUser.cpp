// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "InvokingUser.h"

#include <grp.h>
#include <unistd.h>

#include <charconv>

namespace Tarvik {

static std::optional<unsigned> parseId(const std::string& text)
{
    unsigned id = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, id);
    if (text.empty() || error != std::errc() || stop != end || id == static_cast<unsigned>(-1))
        return {};
    return id;
}

InvokingUser invokingUser(const Environment& environment, uid_t effectiveUser, gid_t effectiveGroup)
{
    const auto user = parseId(environment("SUDO_UID"));
    const auto group = parseId(environment("SUDO_GID"));
    if (effectiveUser != 0 || !user || !group || *user == 0)
        return {effectiveUser, effectiveGroup, false};
    return {*user, *group, true};
}

bool becomeInvokingUser(const InvokingUser& user)
{
    if (!user.isThroughSudo)
        return true;
    return setgroups(1, &user.group) == 0 && setresgid(user.group, user.group, user.group) == 0
        && setresuid(user.user, user.user, user.user) == 0;
}

ActingAsInvokingUser::ActingAsInvokingUser(const InvokingUser& user)
    : m_previousUser(geteuid())
    , m_previousGroup(getegid())
    , m_isOther(user.isThroughSudo && setegid(user.group) == 0 && seteuid(user.user) == 0)
{
}

ActingAsInvokingUser::~ActingAsInvokingUser()
{
    // The user first: only the superuser may take any group. The saved ids make sure that it works.
    [[maybe_unused]] const bool isBack = !m_isOther || (seteuid(m_previousUser) == 0 && setegid(m_previousGroup) == 0);
}

} // namespace Tarvik
