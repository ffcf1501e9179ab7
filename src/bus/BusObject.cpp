// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/BusObject.h"

#include "bus/BusInterface.h"
#include "dbus/contracts/TarvikWire.h"

#include <QDBusVariant>
#include <QFile>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

/// The element "interface" of a contract with everything in it.
QString contractOf(const QString& interface)
{
    QFile file(u":/bus/%1.xml"_s.arg(interface));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    const auto end = "</interface>\n"_L1;
    const qsizetype from = text.indexOf("  <interface "_L1);
    return text.mid(from, text.indexOf(end) + end.size() - from);
}

} // namespace

BusObject::BusObject(QDBusConnection bus)
    : m_bus(std::move(bus))
{
    m_bus.registerVirtualObject(QString::fromLatin1(TarvikWire::objectPath), this);
}

BusObject::~BusObject()
{
    m_bus.unregisterObject(QString::fromLatin1(TarvikWire::objectPath));
}

void BusObject::add(std::unique_ptr<BusInterface> interface)
{
    interface->start();
    m_interfaces.push_back(std::move(interface));
}

QString BusObject::introspect(const QString&) const
{
    QString contracts;
    for (const auto& interface : m_interfaces)
        contracts += contractOf(interface->name());
    return contracts;
}

bool BusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    // QtDBus answers this one with what introspect() adds to it.
    if (message.interface() == "org.freedesktop.DBus.Introspectable"_L1)
        return false;
    const BusAnswer result = answer(message);
    if (!message.isReplyRequired())
        return true;
    const auto tell = [message, connection](const BusAnswer& known) {
        connection.send(known.isRefusal() ? message.createErrorReply(known.error, known.message)
                                          : message.createReply(known.values));
    };
    if (result.later)
        result.later(tell);
    else
        tell(result);
    return true;
}

BusAnswer BusObject::answer(const QDBusMessage& message) const
{
    if (message.interface() == propertiesInterface)
        return answerProperties(message);
    const auto isMeant = [&](const auto& interface) {
        // Callers may leave the interface out.
        return message.interface().isEmpty() ? interface->hasMethod(message.member())
                                             : interface->name() == message.interface();
    };
    const auto meant = std::ranges::find_if(m_interfaces, isMeant);
    if (meant == m_interfaces.end()) {
        return BusAnswer::refusal(
            message.interface().isEmpty() ? QDBusError::UnknownMethod : QDBusError::UnknownInterface,
            u"There is no %1.%2 here."_s.arg(message.interface(), message.member()));
    }
    return (*meant)->call(message.member(), message.arguments());
}

BusAnswer BusObject::answerProperties(const QDBusMessage& message) const
{
    const QString signature = message.signature();
    const QVariantList arguments = message.arguments();
    const bool isGet = message.member() == "Get"_L1;
    const bool isSet = message.member() == "Set"_L1;
    if (!isGet && !isSet && message.member() != "GetAll"_L1)
        return BusAnswer::refusal(QDBusError::UnknownMethod, u"Properties have no %1."_s.arg(message.member()));
    if (signature != (isGet ? "ss"_L1 : isSet ? "ssv"_L1 : "s"_L1))
        return BusAnswer::invalidArguments(u"%1 does not take \"%2\"."_s.arg(message.member(), signature));
    BusInterface* interface = find(arguments[0].toString());
    if (interface == nullptr) {
        return BusAnswer::refusal(
            QDBusError::UnknownInterface, u"There is no interface \"%1\" here."_s.arg(arguments[0].toString()));
    }
    if (isSet)
        return interface->set(arguments[1].toString(), arguments[2].value<QDBusVariant>().variant());
    if (!isGet)
        return {.values = {interface->getAll()}};
    BusAnswer value = interface->get(arguments[1].toString());
    if (!value.isRefusal())
        value.values = {QVariant::fromValue(QDBusVariant(value.values[0]))};
    return value;
}

BusInterface* BusObject::find(const QString& interface) const
{
    const auto known
        = std::ranges::find_if(m_interfaces, [&](const auto& candidate) { return candidate->name() == interface; });
    return known != m_interfaces.end() ? known->get() : nullptr;
}

} // namespace Tarvik
