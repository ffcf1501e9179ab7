// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Tarvik {

/// Takes values out of the little-endian wire form of D-Bus. Once something does not fit, `hasFailed()` stays true and
/// every value is empty. Texts are views into the bytes, which the caller keeps.
class DBusReader final {
public:
    explicit DBusReader(std::string_view bytes)
        : m_bytes(bytes)
    {
    }

    bool hasFailed() const { return m_failed; }
    /// Something else did not fit.
    void fail() { m_failed = true; }
    std::size_t position() const { return m_position; }

    void align(std::size_t boundary);
    std::uint8_t byte();
    std::uint32_t uint32();
    bool boolean();
    /// A string or an object path.
    std::string_view string();
    std::string_view signature();

    /// Where the array ends that begins here; read elements while `isBefore()` that end.
    std::size_t beginArray(std::size_t elementAlignment);
    bool isBefore(std::size_t end) const { return !m_failed && m_position < end; }

private:
    std::string_view take(std::size_t count);

    std::string_view m_bytes;
    std::size_t m_position = 0;
    bool m_failed = false;
};

} // namespace Tarvik
