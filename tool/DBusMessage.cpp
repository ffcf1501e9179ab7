// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "DBusMessage.h"

#include "DBusReader.h"
#include "DBusWriter.h"

namespace Tarvik {

static constexpr std::uint8_t protocolVersion = 1;
static constexpr std::size_t fixedHeaderSize = 16;
// Far more than any answer that is asked for here.
static constexpr std::size_t maximumSize = std::size_t(4) * 1024 * 1024;

enum HeaderField : std::uint8_t {
    pathField = 1,
    interfaceField = 2,
    memberField = 3,
    errorNameField = 4,
    replySerialField = 5,
    destinationField = 6,
    signatureField = 8,
};

static void writeField(DBusWriter& writer, HeaderField field, std::string_view type, std::string_view value)
{
    if (value.empty())
        return;
    writer.align(8);
    writer.byte(field);
    writer.signature(type);
    if (type == "g")
        writer.signature(value);
    else
        writer.string(value);
}

std::string encode(const DBusMessage& message, std::uint32_t serial)
{
    DBusWriter writer;
    writer.byte('l');
    writer.byte(static_cast<std::uint8_t>(message.type));
    writer.byte(message.flags);
    writer.byte(protocolVersion);
    writer.uint32(static_cast<std::uint32_t>(message.body.size()));
    writer.uint32(serial);
    const auto fields = writer.beginArray(8);
    writeField(writer, pathField, "o", message.path);
    writeField(writer, interfaceField, "s", message.interface);
    writeField(writer, memberField, "s", message.member);
    writeField(writer, errorNameField, "s", message.errorName);
    if (message.replySerial != 0) {
        writer.align(8);
        writer.byte(replySerialField);
        writer.signature("u");
        writer.uint32(message.replySerial);
    }
    writeField(writer, destinationField, "s", message.destination);
    writeField(writer, signatureField, "g", message.signature);
    writer.endArray(fields);
    writer.align(8);
    writer.raw(message.body);
    return writer.bytes();
}

std::optional<std::size_t> encodedSize(std::string_view bytes)
{
    if (!bytes.empty() && bytes.front() != 'l')
        return {};
    if (bytes.size() < fixedHeaderSize)
        return 0;
    DBusReader reader(bytes.substr(4, fixedHeaderSize - 4));
    const std::size_t body = reader.uint32();
    reader.uint32();
    const std::size_t fields = reader.uint32();
    if (body > maximumSize || fields > maximumSize)
        return {};
    return fixedHeaderSize + (fields + 7) / 8 * 8 + body;
}

static void readField(DBusReader& reader, DBusMessage& message)
{
    reader.align(8);
    const std::uint8_t field = reader.byte();
    const std::string_view type = reader.signature();
    if (type == "u") {
        const std::uint32_t number = reader.uint32();
        if (field == replySerialField)
            message.replySerial = number;
    } else if (type == "g") {
        const std::string_view signature = reader.signature();
        if (field == signatureField)
            message.signature = signature;
    } else if (type == "s" || type == "o") {
        const std::string_view text = reader.string();
        if (field == pathField)
            message.path = text;
        else if (field == interfaceField)
            message.interface = text;
        else if (field == memberField)
            message.member = text;
        else if (field == errorNameField)
            message.errorName = text;
        else if (field == destinationField)
            message.destination = text;
    } else {
        // No field of the specification is of any other type.
        reader.fail();
    }
}

std::optional<DBusMessage> decode(std::string_view bytes)
{
    const auto size = encodedSize(bytes);
    if (!size || *size != bytes.size())
        return {};
    DBusReader reader(bytes);
    reader.byte();
    const std::uint8_t type = reader.byte();
    DBusMessage message;
    message.flags = reader.byte();
    const std::uint8_t version = reader.byte();
    const std::size_t bodySize = reader.uint32();
    reader.uint32();
    if (version != protocolVersion || type < 1 || type > 4)
        return {};
    message.type = static_cast<DBusMessageType>(type);
    const std::size_t end = reader.beginArray(8);
    while (reader.isBefore(end))
        readField(reader, message);
    if (reader.hasFailed() || reader.position() != end)
        return {};
    message.body = bytes.substr(bytes.size() - bodySize);
    return message;
}

DBusMessage busCall(std::string_view member, std::optional<std::string_view> argument)
{
    DBusMessage call;
    call.destination = "org.freedesktop.DBus";
    call.path = "/org/freedesktop/DBus";
    call.interface = "org.freedesktop.DBus";
    call.member = member;
    if (argument) {
        DBusWriter body;
        body.string(*argument);
        call.signature = "s";
        call.body = body.bytes();
    }
    return call;
}

} // namespace Tarvik
