// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11Settings.h"

#include "base/Releaser.h"

#include <QtEndian>

#include <cstdlib>
#include <variant>

namespace Tarvik::X11Settings {

namespace {

/// In units of four bytes.
constexpr uint32_t longestProperty = 64 * 1024;

template <typename T>
using Reply = Owned<T, std::free>;

/// Reads what another program wrote; past its end everything is 0 and `isGood` is false.
class Reader {
public:
    explicit Reader(const QByteArray& data)
        : m_data(data)
        , m_isBigEndian(data.startsWith('\1'))
    {
    }

    bool isGood() const { return m_isGood; }

    template <typename T>
    T number()
    {
        const QByteArray bytes = take(sizeof(T));
        if (!m_isGood)
            return 0;
        return m_isBigEndian ? qFromBigEndian<T>(bytes.constData()) : qFromLittleEndian<T>(bytes.constData());
    }

    QByteArray text(qsizetype length)
    {
        const QByteArray text = take(length);
        skip((4 - length % 4) % 4);
        return text;
    }

    void skip(qsizetype length) { take(length); }

private:
    QByteArray take(qsizetype length)
    {
        m_isGood = m_isGood && length <= m_data.size() - m_position;
        if (!m_isGood)
            return {};
        m_position += length;
        return m_data.mid(m_position - length, length);
    }

    QByteArray m_data;
    qsizetype m_position = 0;
    bool m_isBigEndian;
    bool m_isGood = true;
};

xcb_atom_t atom(xcb_connection_t* x11, const QByteArray& name)
{
    const auto cookie = xcb_intern_atom(x11, 1, static_cast<uint16_t>(name.size()), name.constData());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x11, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// A colour is none of these.
using Value = std::variant<std::monostate, int, QByteArray>;

Value find(const QByteArray& settings, const QByteArray& name)
{
    enum Type : quint8 { integer, string, colour };
    constexpr qsizetype colourLength = 8;
    Reader reader(settings);
    // Byte order, unused, serial.
    reader.skip(8);
    const auto count = reader.number<quint32>();
    for (quint32 i = 0; i < count && reader.isGood(); ++i) {
        const auto type = reader.number<quint8>();
        reader.skip(1);
        const QByteArray found = reader.text(reader.number<quint16>());
        // Serial.
        reader.skip(4);
        Value value;
        if (type == integer)
            value = reader.number<qint32>();
        else if (type == string)
            value = reader.text(reader.number<quint32>());
        else if (type == colour)
            reader.skip(colourLength);
        else
            return {};
        if (found == name && reader.isGood())
            return value;
    }
    return {};
}

template <typename T>
std::optional<T> valueOf(const Value& value)
{
    const T* found = std::get_if<T>(&value);
    return found != nullptr ? std::optional(*found) : std::nullopt;
}

} // namespace

QByteArray read(xcb_connection_t* x11)
{
    const auto cookie = xcb_get_selection_owner(x11, atom(x11, "_XSETTINGS_S0"));
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(x11, cookie, nullptr));
    if (!reply || reply->owner == XCB_WINDOW_NONE)
        return {};
    return property(x11, reply->owner, atom(x11, "_XSETTINGS_SETTINGS"));
}

QByteArray read(const QByteArray& display)
{
    const Owned<xcb_connection_t, xcb_disconnect> x11(xcb_connect(display.constData(), nullptr));
    return xcb_connection_has_error(x11.get()) == 0 ? read(x11.get()) : QByteArray();
}

std::optional<int> integer(const QByteArray& settings, const QByteArray& name)
{
    return valueOf<int>(find(settings, name));
}

std::optional<QByteArray> text(const QByteArray& settings, const QByteArray& name)
{
    return valueOf<QByteArray>(find(settings, name));
}

bool isThemeDark(const QByteArray& settings)
{
    return text(settings, "Net/ThemeName").value_or(QByteArray()).toLower().contains("dark");
}

QByteArray property(xcb_connection_t* x11, xcb_window_t window, xcb_atom_t name)
{
    const auto cookie = xcb_get_property(x11, 0, window, name, XCB_ATOM_ANY, 0, longestProperty);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x11, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), xcb_get_property_value_length(reply.get())};
}

} // namespace Tarvik::X11Settings
