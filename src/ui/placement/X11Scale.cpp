// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/X11Scale.h"

#include "base/Releaser.h"

#include <QByteArrayList>
#include <QtEndian>

#include <xcb/xcb.h>

#include <cstdlib>

namespace Tarvik::X11Scale {

namespace {

constexpr double unscaledResolution = 96;
constexpr int largestFactor = 4;
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

QByteArray property(xcb_connection_t* x11, xcb_window_t window, xcb_atom_t name)
{
    const auto cookie = xcb_get_property(x11, 0, window, name, XCB_ATOM_ANY, 0, longestProperty);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(x11, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), xcb_get_property_value_length(reply.get())};
}

QByteArray settings(xcb_connection_t* x11)
{
    const auto cookie = xcb_get_selection_owner(x11, atom(x11, "_XSETTINGS_S0"));
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(x11, cookie, nullptr));
    if (!reply || reply->owner == XCB_WINDOW_NONE)
        return {};
    return property(x11, reply->owner, atom(x11, "_XSETTINGS_SETTINGS"));
}

} // namespace

int missingFactor(const QByteArray& display)
{
    const Owned<xcb_connection_t, xcb_disconnect> x11(xcb_connect(display.constData(), nullptr));
    if (xcb_connection_has_error(x11.get()) != 0)
        return 1;
    const int factor = integerSetting(settings(x11.get()), "Gdk/WindowScalingFactor").value_or(1);
    if (factor <= 1 || factor > largestFactor)
        return 1;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x11.get())).data->root;
    const auto resolution = fontResolution(property(x11.get(), root, XCB_ATOM_RESOURCE_MANAGER));
    return resolution.value_or(unscaledResolution) < factor * unscaledResolution ? factor : 1;
}

std::optional<int> integerSetting(const QByteArray& settings, const QByteArray& name)
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
        if (type == integer) {
            const auto value = reader.number<qint32>();
            if (found == name && reader.isGood())
                return value;
        } else if (type == string) {
            reader.text(reader.number<quint32>());
        } else if (type == colour) {
            reader.skip(colourLength);
        } else {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<double> fontResolution(const QByteArray& resources)
{
    for (const QByteArray& line : resources.split('\n')) {
        if (!line.startsWith("Xft.dpi:"))
            continue;
        bool isNumber = false;
        const double value = line.mid(line.indexOf(':') + 1).trimmed().toDouble(&isNumber);
        if (isNumber)
            return value;
    }
    return std::nullopt;
}

} // namespace Tarvik::X11Scale
