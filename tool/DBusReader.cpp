// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "DBusReader.h"

namespace Tarvik {

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

std::uint8_t DBusReader::byte()
{
    const std::string_view taken = take(1);
    return taken.empty() ? 0 : static_cast<std::uint8_t>(taken.front());
}

std::uint32_t DBusReader::uint32()
{
    align(4);
    const std::string_view taken = take(4);
    std::uint32_t value = 0;
    for (std::size_t index = taken.size(); index > 0; --index)
        value = value << 8 | static_cast<unsigned char>(taken[index - 1]);
    return value;
}

bool DBusReader::boolean()
{
    const std::uint32_t value = uint32();
    m_failed = m_failed || value > 1;
    return !m_failed && value == 1;
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

} // namespace Tarvik
