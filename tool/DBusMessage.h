// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Tarvik {

enum class DBusMessageType : std::uint8_t {
    methodCall = 1,
    methodReturn = 2,
    error = 3,
    signal = 4,
};

/// One message of the D-Bus specification, as far as this program speaks it. Empty texts stand for absent header
/// fields.
struct DBusMessage {
    static constexpr std::uint8_t noReplyExpected = 1;
    static constexpr std::uint8_t noAutoStart = 2;

    DBusMessageType type = DBusMessageType::methodCall;
    std::uint8_t flags = 0;
    std::uint32_t replySerial = 0;
    std::string destination;
    std::string path;
    std::string interface;
    std::string member;
    std::string errorName;
    /// The body's types, and the body in wire form.
    std::string signature;
    std::string body;

    bool operator==(const DBusMessage&) const = default;
};

/// The message in wire form; the serial is the sender's number for it, not 0.
std::string encode(const DBusMessage& message, std::uint32_t serial);

/// The whole length of the message that begins with these bytes; 0 while fewer than 16 are there, nothing when they do
/// not begin a little-endian message of an acceptable size.
std::optional<std::size_t> encodedSize(std::string_view bytes);

/// The message that these bytes are, exactly; nothing when they are none.
std::optional<DBusMessage> decode(std::string_view bytes);

/// A call of the bus itself (org.freedesktop.DBus) with one text as argument, or none.
DBusMessage busCall(std::string_view member, std::optional<std::string_view> argument = {});

} // namespace Tarvik
