// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/kernel/UeventMonitor.h"
#include "platform/linux/thermal/ThermalEvents.h"
#include "support/TestSupport.h"

#include <QFile>

#include <linux/capability.h>
#include <linux/genetlink.h>
#include <linux/netlink.h>
#include <linux/thermal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

using namespace Tarvik;

namespace {

constexpr quint16 familyId = 31;

/// Whether this process has CAP_NET_ADMIN, see proc(5).
bool mayAdministerNetwork()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray label = "CapEff:";
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(label))
            return (line.mid(label.size()).trimmed().toULongLong(nullptr, 16) >> CAP_NET_ADMIN & 1) != 0;
    }
    return false;
}

QByteArray attribute(quint16 type, const QByteArray& value)
{
    const nlattr header{.nla_len = static_cast<quint16>(NLA_HDRLEN + value.size()), .nla_type = type};
    QByteArray bytes{reinterpret_cast<const char*>(&header), sizeof header};
    bytes += value;
    bytes.resize(NLA_ALIGN(bytes.size()), '\0');
    return bytes;
}

template <typename T>
QByteArray attribute(quint16 type, T value)
{
    return attribute(type, QByteArray{reinterpret_cast<const char*>(&value), sizeof value});
}

QByteArray message(quint16 type, quint8 command, const QByteArray& attributes)
{
    const nlmsghdr header{.nlmsg_len = static_cast<quint32>(NLMSG_HDRLEN + GENL_HDRLEN + attributes.size()),
        .nlmsg_type = type,
        .nlmsg_flags = 0,
        .nlmsg_seq = 0,
        .nlmsg_pid = 0};
    const genlmsghdr generic{.cmd = command, .version = 1, .reserved = 0};
    return QByteArray{reinterpret_cast<const char*>(&header), sizeof header}
    + QByteArray{reinterpret_cast<const char*>(&generic), sizeof generic} + attributes;
}

QByteArray group(quint16 position, const char* name, quint32 id)
{
    const QByteArray text{name, static_cast<qsizetype>(std::strlen(name)) + 1};
    return attribute(position, attribute(CTRL_ATTR_MCAST_GRP_NAME, text) + attribute(CTRL_ATTR_MCAST_GRP_ID, id));
}

QByteArray familyAnswer()
{
    return message(GENL_ID_CTRL,
        CTRL_CMD_NEWFAMILY,
        attribute(CTRL_ATTR_FAMILY_NAME, QByteArray{"thermal\0", 8}) + attribute(CTRL_ATTR_FAMILY_ID, familyId)
            + attribute(CTRL_ATTR_MCAST_GROUPS, group(1, "sampling", 7) + group(2, "event", 8)));
}

} // namespace

class KernelEventsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { TARVIK_FAIL_ON_WARNINGS(); }

    void theSubsystemOfAUeventIsFound()
    {
        const char event[] = "change@/devices/LNXSYSTM:00/power_supply/ADP1\0ACTION=change\0"
                             "DEVPATH=/devices/LNXSYSTM:00/power_supply/ADP1\0SUBSYSTEM=power_supply\0"
                             "POWER_SUPPLY_ONLINE=1";
        QCOMPARE(UeventMonitor::subsystemOf(QByteArray{event, sizeof event}), QByteArray{"power_supply"});
    }

    void aUeventWithoutASubsystemHasNone_data()
    {
        QTest::addColumn<QByteArray>("datagram");
        QTest::newRow("empty") << QByteArray{};
        QTest::newRow("one zero byte") << QByteArray{"\0", 1};
        QTest::newRow("in the middle of a line") << QByteArray{"add@/SUBSYSTEM=power_supply"};
        QTest::newRow("cut off") << QByteArray{"add@/x\0SUBSYSTE", 15};
    }

    void aUeventWithoutASubsystemHasNone()
    {
        QFETCH(const QByteArray, datagram);
        QVERIFY(UeventMonitor::subsystemOf(datagram).isEmpty());
    }

    void theRequestForTheFamilyIsOneWholeMessage()
    {
        const QByteArray name{"thermal\0", 8};
        const QByteArray request = ThermalEvents::familyRequest();
        QByteArray expected = message(GENL_ID_CTRL, CTRL_CMD_GETFAMILY, attribute(CTRL_ATTR_FAMILY_NAME, name));
        auto* header = reinterpret_cast<nlmsghdr*>(expected.data());
        header->nlmsg_flags = NLM_F_REQUEST;
        header->nlmsg_seq = 1;
        QCOMPARE(request, expected);
    }

    void theFamilyAndItsGroupAreFound()
    {
        const auto family = ThermalEvents::familyOf(familyAnswer());
        QVERIFY(family);
        QCOMPARE(family->id, familyId);
        QCOMPARE(family->eventGroup, 8U);
    }

    void anAnswerThatIsCutOffAnywhereIsNoFamily()
    {
        const QByteArray answer = familyAnswer();
        for (qsizetype length = 0; length < answer.size(); ++length)
            QVERIFY(!ThermalEvents::familyOf(answer.first(length)));
    }

    void anAnswerOfAnyOtherKindIsHarmless()
    {
        const QByteArray answer = familyAnswer();
        for (qsizetype position = 0; position < answer.size(); ++position) {
            for (const char value : {'\0', '\1', '\x7f', '\xff'}) {
                QByteArray broken = answer;
                broken[position] = value;
                ThermalEvents::familyOf(broken);
            }
        }
        QVERIFY(!ThermalEvents::familyOf(message(familyId, CTRL_CMD_NEWFAMILY, {})));
        QVERIFY(!ThermalEvents::familyOf(message(GENL_ID_CTRL, CTRL_CMD_NEWFAMILY, {})));
    }

    void onlyZonesAndTripsAreEvents()
    {
        const auto isEvent
            = [](quint8 command) { return ThermalEvents::isZoneEvent(message(familyId, command, {}), familyId); };
        QVERIFY(isEvent(THERMAL_GENL_EVENT_TZ_CREATE));
        QVERIFY(isEvent(THERMAL_GENL_EVENT_TZ_DELETE));
        QVERIFY(isEvent(THERMAL_GENL_EVENT_TZ_TRIP_UP));
        QVERIFY(isEvent(THERMAL_GENL_EVENT_TZ_TRIP_DOWN));
        QVERIFY(isEvent(THERMAL_GENL_EVENT_TZ_TRIP_CHANGE));
        QVERIFY(!isEvent(THERMAL_GENL_EVENT_CDEV_STATE_UPDATE));
        QVERIFY(!isEvent(THERMAL_GENL_EVENT_UNSPEC));
        QVERIFY(!ThermalEvents::isZoneEvent(message(16, THERMAL_GENL_EVENT_TZ_TRIP_UP, {}), familyId));
        QVERIFY(!ThermalEvents::isZoneEvent({}, familyId));
    }

    void whatAnotherProcessSendsIsNotHandedOn()
    {
        int received = 0;
        int fromKernel = 0;
        NetlinkSocket socket{NETLINK_GENERIC, 0, [&](const std::vector<QByteArray>& datagrams, bool) {
                                 ++received;
                                 fromKernel += static_cast<int>(datagrams.size());
                             }};
        QVERIFY(socket.isOpen());

        // The first netlink socket of a process is bound to the port that is its process id.
        const int impostor = ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_GENERIC);
        sockaddr_nl target{
            .nl_family = AF_NETLINK, .nl_pad = 0, .nl_pid = static_cast<quint32>(getpid()), .nl_groups = 0};
        const QByteArray forged = message(familyId, THERMAL_GENL_EVENT_TZ_TRIP_UP, {});
        const ssize_t sent = sendto(impostor,
            forged.constData(),
            static_cast<std::size_t>(forged.size()),
            0,
            reinterpret_cast<const sockaddr*>(&target),
            sizeof target);
        // Who may not administer the network, as in most containers, is refused by the kernel itself.
        if (mayAdministerNetwork())
            QCOMPARE(sent, forged.size());
        else
            QVERIFY2(sent < 0 && errno == EPERM, std::strerror(errno));
        close(impostor);

        // Even a kernel without thermal zones answers that it has no such family.
        socket.send(ThermalEvents::familyRequest());
        QTRY_COMPARE(received, 1);
        QCOMPARE(fromKernel, 1);
    }
};

QTEST_GUILESS_MAIN(KernelEventsTest)
#include "KernelEventsTest.moc"
