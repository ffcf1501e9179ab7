// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace Tarvik {

/// The set of program names that one command line stands for: the program's own and, behind an interpreter, its
/// script's. Holds at most two, in place, because one is kept for every process of a large machine.
class ProgramNames {
public:
    ProgramNames() = default;
    explicit ProgramNames(std::string program, std::string script = {})
    {
        insert(std::move(program));
        insert(std::move(script));
    }

    /// Ignores an empty name and one that is in the set.
    void insert(std::string name)
    {
        if (!name.empty() && !contains(name))
            m_names.at(m_size++) = std::move(name);
    }

    bool contains(std::string_view name) const { return std::find(begin(), end(), name) != end(); }
    std::size_t size() const { return m_size; }
    const std::string* begin() const { return m_names.data(); }
    const std::string* end() const { return m_names.data() + m_size; }

    bool operator==(const ProgramNames& other) const
    {
        return size() == other.size()
            && std::all_of(begin(), end(), [&](const std::string& name) { return other.contains(name); });
    }

private:
    std::array<std::string, 2> m_names;
    std::size_t m_size = 0;
};

/// One line of the process table. Text is UTF-8.
struct ProcessEntry {
    ProgramNames names;
    /// The whole line in lower case.
    std::string commandLine;

    bool operator==(const ProcessEntry&) const = default;
};

} // namespace Tarvik
