// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/ProcessParsers.h"

#include <QList>
#include <QString>

#include <array>

namespace Tarvik::ProcessParsers {

namespace {

using namespace std::string_view_literals;

constexpr std::array interpreters{"node"sv,
    "nodejs"sv,
    "bun"sv,
    "deno"sv,
    "tsx"sv,
    "ts-node"sv,
    "npx"sv,
    "python"sv,
    "pypy"sv,
    "ruby"sv,
    "perl"sv,
    "php"sv,
    "uv"sv};

constexpr std::array scriptSuffixes{".js"sv, ".mjs"sv, ".cjs"sv, ".ts"sv, ".py"sv, ".rb"sv, ".pl"sv, ".php"sv};

bool isAsciiLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Nearly every command line is ASCII, and there may be tens of thousands of them.
std::string lowerCased(std::string_view text)
{
    std::string result(text);
    unsigned char bits = 0;
    for (char& c : result) {
        bits |= static_cast<unsigned char>(c);
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    }
    if (bits < 0x80)
        return result;
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toLower().toStdString();
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// Takes the next word off the front of `rest`; empty when there is none.
std::string_view takeWord(std::string_view& rest)
{
    const auto begin = std::ranges::find_if_not(rest, isBlank);
    const auto end = std::find_if(begin, rest.end(), isBlank);
    const std::string_view word(begin, end);
    rest = std::string_view(end, rest.end());
    return word;
}

bool beginsWithLetter(std::string_view text)
{
    // Four bytes hold any one character.
    const auto characters
        = QString::fromUtf8(text.data(), static_cast<qsizetype>(std::min<size_t>(text.size(), 4))).toUcs4();
    return !characters.isEmpty() && QChar::isLetter(characters.first());
}

} // namespace

std::vector<ProcessEntry> listProcesses(QByteArrayView output)
{
    std::vector<ProcessEntry> entries;
    if (!output.isValidUtf8())
        return entries;
    std::string_view rest(output.data(), static_cast<size_t>(output.size()));
    entries.reserve(static_cast<size_t>(std::ranges::count(rest, '\n')) + 1);
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (!line.empty())
            entries.push_back({.names = invocationNames(line), .commandLine = lowerCased(line)});
    }
    return entries;
}

ProgramNames invocationNames(std::string_view fromArgs)
{
    ProgramNames names;
    std::string_view rest = fromArgs;
    const std::string program = executableName(takeWord(rest));
    names.insert(program);
    if (!isInterpreter(program))
        return names;
    std::string_view argument = takeWord(rest);
    while (argument.starts_with('-'))
        argument = takeWord(rest);
    names.insert(executableName(argument));
    return names;
}

std::string executableName(std::string_view word)
{
    std::string name = lowerCased(word.substr(word.find_last_of('/') + 1));
    for (const std::string_view suffix : scriptSuffixes) {
        if (name.ends_with(suffix)) {
            name.resize(name.size() - suffix.size());
            break;
        }
    }
    return name;
}

bool isInterpreter(std::string_view name)
{
    const auto isListed
        = [](std::string_view candidate) { return std::ranges::find(interpreters, candidate) != interpreters.end(); };
    if (isListed(name))
        return true;
    const auto end = std::ranges::find_if_not(name, isAsciiLetter);
    const auto length = static_cast<size_t>(end - name.begin());
    // A letter of another script belongs to the name's leading letters, and no interpreter has one.
    return isListed(name.substr(0, length)) && !beginsWithLetter(name.substr(length));
}

} // namespace Tarvik::ProcessParsers
