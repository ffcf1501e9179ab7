// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/thermal/ThermalEvents.h"

#include <linux/genetlink.h>
#include <linux/netlink.h>
#include <linux/thermal.h>

#include <cstring>

namespace Tarvik {

namespace {

constexpr qsizetype headersSize = NLMSG_HDRLEN + GENL_HDRLEN;

template <typename T>
T valueAt(const QByteArray& bytes, qsizetype offset)
{
    T value{};
    std::memcpy(&value, bytes.constData() + offset, sizeof value);
    return value;
}

/// The message's type and command, when the datagram holds a whole one.
struct Message {
    quint16 type;
    quint8 command;
    QByteArray attributes;
};

std::optional<Message> parse(const QByteArray& datagram)
{
    if (datagram.size() < headersSize)
        return {};
    const auto header = valueAt<nlmsghdr>(datagram, 0);
    if (header.nlmsg_len < headersSize || header.nlmsg_len > datagram.size())
        return {};
    const auto generic = valueAt<genlmsghdr>(datagram, NLMSG_HDRLEN);
    return Message{header.nlmsg_type, generic.cmd, datagram.sliced(headersSize, header.nlmsg_len - headersSize)};
}

struct Attribute {
    int type;
    QByteArray value;
};

/// Stops at the first attribute that does not fit.
std::vector<Attribute> attributesIn(const QByteArray& bytes)
{
    std::vector<Attribute> attributes;
    for (qsizetype offset = 0; offset + NLA_HDRLEN <= bytes.size();) {
        const auto header = valueAt<nlattr>(bytes, offset);
        if (header.nla_len < NLA_HDRLEN || offset + header.nla_len > bytes.size())
            break;
        attributes.push_back(
            {header.nla_type & NLA_TYPE_MASK, bytes.sliced(offset + NLA_HDRLEN, header.nla_len - NLA_HDRLEN)});
        offset += NLA_ALIGN(header.nla_len);
    }
    return attributes;
}

template <typename T>
std::optional<T> number(const std::vector<Attribute>& attributes, int type)
{
    for (const Attribute& attribute : attributes) {
        if (attribute.type == type && attribute.value.size() == sizeof(T))
            return valueAt<T>(attribute.value, 0);
    }
    return {};
}

std::optional<quint32> eventGroupIn(const QByteArray& groups)
{
    for (const Attribute& group : attributesIn(groups)) {
        const auto fields = attributesIn(group.value);
        for (const Attribute& field : fields) {
            if (field.type == CTRL_ATTR_MCAST_GRP_NAME
                && std::strcmp(field.value.constData(), THERMAL_GENL_EVENT_GROUP_NAME) == 0)
                return number<quint32>(fields, CTRL_ATTR_MCAST_GRP_ID);
        }
    }
    return {};
}

template <typename T>
void append(QByteArray& bytes, const T& value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace

ThermalEvents::ThermalEvents(std::function<void()> onEvent)
    : m_onEvent(std::move(onEvent))
    , m_socket(
          NETLINK_GENERIC, 0, [this](const std::vector<QByteArray>& datagrams, bool lost) { receive(datagrams, lost); })
{
    if (m_socket.isOpen())
        m_socket.send(familyRequest());
}

QByteArray ThermalEvents::familyRequest()
{
    constexpr qsizetype nameSize = sizeof THERMAL_GENL_FAMILY_NAME;
    constexpr qsizetype attributeSize = NLA_HDRLEN + nameSize;
    const nlmsghdr header{.nlmsg_len = headersSize + NLA_ALIGN(attributeSize),
        .nlmsg_type = GENL_ID_CTRL,
        .nlmsg_flags = NLM_F_REQUEST,
        .nlmsg_seq = 1,
        .nlmsg_pid = 0};
    const genlmsghdr generic{.cmd = CTRL_CMD_GETFAMILY, .version = 1, .reserved = 0};
    const nlattr attribute{.nla_len = attributeSize, .nla_type = CTRL_ATTR_FAMILY_NAME};

    QByteArray request;
    append(request, header);
    append(request, generic);
    append(request, attribute);
    request.append(THERMAL_GENL_FAMILY_NAME, nameSize);
    request.resize(header.nlmsg_len, '\0');
    return request;
}

std::optional<ThermalEvents::Family> ThermalEvents::familyOf(const QByteArray& datagram)
{
    const auto message = parse(datagram);
    if (!message || message->type != GENL_ID_CTRL || message->command != CTRL_CMD_NEWFAMILY)
        return {};
    const auto attributes = attributesIn(message->attributes);
    const auto id = number<quint16>(attributes, CTRL_ATTR_FAMILY_ID);
    for (const Attribute& attribute : attributes) {
        if (attribute.type != CTRL_ATTR_MCAST_GROUPS)
            continue;
        const auto group = eventGroupIn(attribute.value);
        if (id && group)
            return Family{*id, *group};
    }
    return {};
}

bool ThermalEvents::isZoneEvent(const QByteArray& datagram, quint16 familyId)
{
    const auto message = parse(datagram);
    return message && message->type == familyId && message->command >= THERMAL_GENL_EVENT_TZ_CREATE
        && message->command <= THERMAL_GENL_EVENT_TZ_TRIP_DELETE;
}

void ThermalEvents::receive(const std::vector<QByteArray>& datagrams, bool lost)
{
    bool isEvent = lost;
    for (const QByteArray& datagram : datagrams) {
        if (m_family) {
            isEvent |= isZoneEvent(datagram, m_family->id);
        } else if ((m_family = familyOf(datagram))) {
            m_socket.join(m_family->eventGroup);
        }
    }
    if (isEvent)
        m_onEvent();
}

} // namespace Tarvik
