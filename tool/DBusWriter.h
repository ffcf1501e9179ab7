// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Tarvik {

/// Puts values into the wire form of D-Bus, little-endian, aligned from the first byte written.
class DBusWriter final {
public:
    /// An array that has been begun: where its length stands and where its elements start.
    struct Array {
        std::size_t length;
        std::size_t elements;
    };

    const std::string& bytes() const { return m_bytes; }

    void align(std::size_t boundary);
    void byte(std::uint8_t value);
    void uint32(std::uint32_t value);
    /// A string or an object path.
    void string(std::string_view value);
    void signature(std::string_view value);
    [[nodiscard]] Array beginArray(std::size_t elementAlignment);
    void endArray(Array array);
    /// Bytes that are in wire form already.
    void raw(std::string_view bytes);

private:
    std::string m_bytes;
};

} // namespace Tarvik
