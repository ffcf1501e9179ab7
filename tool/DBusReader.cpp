// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "DBusReader.h"

#include <bit>

namespace Tarvik {

// Arrays, structures and variants may not be nested deeper in a valid message.
static constexpr int maximumDepth = 64;

static std::size_t alignmentOf(char type)
{
    switch (type) {
    case 'n':
    case 'q':
        return 2;
    case 'b':
    case 'i':
    case 'u':
    case 'h':
    case 's':
    case 'o':
    case 'a':
        return 4;
    case 'x':
    case 't':
    case 'd':
    case '(':
    case '{':
        return 8;
    default:
        return 1;
    }
}

/// The end of the single complete type that begins at `begin`; npos when there is none.
static std::size_t endOfType(std::string_view signature, std::size_t begin)
{
    std::size_t index = begin;
    while (index < signature.size() && signature[index] == 'a')
        ++index;
    if (index == signature.size())
        return std::string_view::npos;
    int open = 0;
    do {
        const char type = signature[index++];
        open += type == '(' || type == '{';
        open -= type == ')' || type == '}';
    } while (open > 0 && index < signature.size());
    const bool isEmptyStructure = index == begin + 2 && signature[begin] == '(';
    return open == 0 && !isEmptyStructure ? index : std::string_view::npos;
}

std::string_view DBusReader::take(std::size_t count)
{
    if (m_failed || count > m_bytes.size() - m_position) {
        m_failed = true;
        return {};
    }
    const std::string_view taken = m_bytes.substr(m_position, count);
    m_position += count;
    return taken;
}

void DBusReader::align(std::size_t boundary)
{
    take((boundary - m_position % boundary) % boundary);
}

std::uint64_t DBusReader::unsignedInteger(std::size_t size)
{
    align(size);
    const std::string_view taken = take(size);
    std::uint64_t value = 0;
    for (std::size_t index = taken.size(); index > 0; --index)
        value = value << 8 | static_cast<unsigned char>(taken[index - 1]);
    return value;
}

std::uint8_t DBusReader::byte()
{
    return static_cast<std::uint8_t>(unsignedInteger(1));
}

std::uint32_t DBusReader::uint32()
{
    return static_cast<std::uint32_t>(unsignedInteger(4));
}

std::int32_t DBusReader::int32()
{
    return std::bit_cast<std::int32_t>(uint32());
}

bool DBusReader::boolean()
{
    const std::uint32_t value = uint32();
    m_failed = m_failed || value > 1;
    return !m_failed && value == 1;
}

double DBusReader::real()
{
    return std::bit_cast<double>(unsignedInteger(8));
}

std::string_view DBusReader::string()
{
    const std::string_view value = take(uint32());
    take(1);
    return m_failed ? std::string_view() : value;
}

std::string_view DBusReader::signature()
{
    const std::string_view value = take(byte());
    take(1);
    return m_failed ? std::string_view() : value;
}

std::size_t DBusReader::beginArray(std::size_t elementAlignment)
{
    const std::size_t size = uint32();
    align(elementAlignment);
    if (size > m_bytes.size() - m_position)
        m_failed = true;
    return m_failed ? m_position : m_position + size;
}

void DBusReader::skip(std::string_view signature)
{
    skipValues(signature, 0);
}

void DBusReader::skipValues(std::string_view signature, int depth)
{
    for (std::size_t index = 0; index < signature.size() && !m_failed;)
        skipType(signature, index, depth);
}

void DBusReader::skipArray(std::string_view elementSignature, int depth)
{
    const std::size_t end = beginArray(alignmentOf(elementSignature.front()));
    while (isBefore(end)) {
        const std::size_t before = m_position;
        skipValues(elementSignature, depth);
        if (m_position == before)
            m_failed = true;
    }
}

void DBusReader::skipType(std::string_view signature, std::size_t& index, int depth)
{
    const std::size_t begin = index;
    const std::size_t end = endOfType(signature, begin);
    if (end == std::string_view::npos || depth > maximumDepth) {
        m_failed = true;
        return;
    }
    index = end;
    switch (signature[begin]) {
    case 'a':
        return skipArray(signature.substr(begin + 1, end - begin - 1), depth + 1);
    case '(':
    case '{':
        align(8);
        return skipValues(signature.substr(begin + 1, end - begin - 2), depth + 1);
    case 'v':
        return skipValues(this->signature(), depth + 1);
    case 's':
    case 'o':
        string();
        return;
    case 'g':
        this->signature();
        return;
    case 'y':
        byte();
        return;
    case 'n':
    case 'q':
    case 'b':
    case 'i':
    case 'u':
    case 'h':
    case 'x':
    case 't':
    case 'd':
        unsignedInteger(alignmentOf(signature[begin]));
        return;
    default:
        m_failed = true;
    }
}

} // namespace Tarvik
