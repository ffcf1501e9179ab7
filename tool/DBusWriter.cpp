// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "DBusWriter.h"

namespace Tarvik {

static char littleEndianByte(std::uint32_t value, unsigned index)
{
    return static_cast<char>((value >> (8 * index)) & 0xff);
}

void DBusWriter::align(std::size_t boundary)
{
    while (m_bytes.size() % boundary != 0)
        m_bytes.push_back('\0');
}

void DBusWriter::byte(std::uint8_t value)
{
    m_bytes.push_back(static_cast<char>(value));
}

void DBusWriter::uint32(std::uint32_t value)
{
    align(4);
    for (unsigned index = 0; index < 4; ++index)
        m_bytes.push_back(littleEndianByte(value, index));
}

void DBusWriter::string(std::string_view value)
{
    uint32(static_cast<std::uint32_t>(value.size()));
    m_bytes.append(value).push_back('\0');
}

void DBusWriter::signature(std::string_view value)
{
    byte(static_cast<std::uint8_t>(value.size()));
    m_bytes.append(value).push_back('\0');
}

DBusWriter::Array DBusWriter::beginArray(std::size_t elementAlignment)
{
    align(4);
    const std::size_t length = m_bytes.size();
    uint32(0);
    align(elementAlignment);
    return {length, m_bytes.size()};
}

void DBusWriter::endArray(Array array)
{
    const auto size = static_cast<std::uint32_t>(m_bytes.size() - array.elements);
    for (unsigned index = 0; index < 4; ++index)
        m_bytes[array.length + index] = littleEndianByte(size, index);
}

void DBusWriter::raw(std::string_view bytes)
{
    m_bytes.append(bytes);
}

} // namespace Tarvik
