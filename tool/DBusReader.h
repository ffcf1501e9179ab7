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
    std::size_t position() const { return m_position; }

    void align(std::size_t boundary);
    std::uint8_t byte();
    std::uint32_t uint32();
    std::int32_t int32();
    bool boolean();
    double real();
    /// A string or an object path.
    std::string_view string();
    std::string_view signature();

    /// Where the array ends that begins here; read elements while `isBefore()` that end.
    std::size_t beginArray(std::size_t elementAlignment);
    bool isBefore(std::size_t end) const { return !m_failed && m_position < end; }

    /// Passes over the values of a signature.
    void skip(std::string_view signature);

private:
    std::string_view take(std::size_t count);
    std::uint64_t unsignedInteger(std::size_t size);
    void skipType(std::string_view signature, std::size_t& index, int depth);
    void skipArray(std::string_view elementSignature, int depth);
    void skipValues(std::string_view signature, int depth);

    std::string_view m_bytes;
    std::size_t m_position = 0;
    bool m_failed = false;
};

} // namespace Tarvik
