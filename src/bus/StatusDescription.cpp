// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/StatusDescription.h"

#include "bus/StatusObject.h"
#include "core/TerminalText.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QMetaProperty>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace Tarvik::StatusDescription {

namespace {

QString leaseText(const StatusLease& lease)
{
    const QString text = QCoreApplication::translate("StatusDescription", "%1, %2 left, %3")
                             .arg(lease.tool, TerminalText::duration(lease.remaining), lease.key);
    return lease.reason.isEmpty() ? text
                                  : QCoreApplication::translate("StatusDescription", "%1: %2").arg(text, lease.reason);
}

QString holdText(const StatusAssertion& assertion)
{
    const QString text = QCoreApplication::translate("StatusDescription", "%1: %2 (%3)")
                             .arg(assertion.type, assertion.what, assertion.service);
    return assertion.isEffective ? text
                                 : QCoreApplication::translate("StatusDescription", "%1, not confirmed").arg(text);
}

QString powerText(const StatusObject& status)
{
    const QString text = status.onAC() ? QCoreApplication::translate("StatusDescription", "external")
                                       : QCoreApplication::translate("StatusDescription", "battery");
    if (!status.hasBattery() || status.batteryPercent() < 0)
        return text;
    return QCoreApplication::translate("StatusDescription", "%1, battery at %2 %")
        .arg(text)
        .arg(status.batteryPercent());
}

QString thermalText(const StatusObject& status)
{
    return status.isHot()
        ? QCoreApplication::translate("StatusDescription", "%1 (too hot to be kept awake)").arg(status.thermalText())
        : status.thermalText();
}

QJsonValue toJson(const QVariant& value)
{
    QJsonArray array;
    if (value.metaType() == QMetaType::fromType<StatusLeaseList>()) {
        for (const StatusLease& lease : value.value<StatusLeaseList>()) {
            array.append(QJsonObject{{u"key"_s, lease.key},
                {u"tool"_s, lease.tool},
                {u"reason"_s, lease.reason},
                {u"acquiredAt"_s, lease.acquiredAt},
                {u"remainingSeconds"_s, lease.remaining}});
        }
        return array;
    }
    if (value.metaType() == QMetaType::fromType<StatusAssertionList>()) {
        for (const StatusAssertion& assertion : value.value<StatusAssertionList>()) {
            array.append(QJsonObject{{u"type"_s, assertion.type},
                {u"service"_s, assertion.service},
                {u"what"_s, assertion.what},
                {u"effective"_s, assertion.isEffective}});
        }
        return array;
    }
    return QJsonValue::fromVariant(value);
}

} // namespace

QString text(const StatusObject& status)
{
    TerminalText::Table table;
    table.add(QCoreApplication::translate("StatusDescription", "Now"), {status.subtitle()});
    if (!status.details().isEmpty())
        table.add({}, {status.details()});
    table.add(QCoreApplication::translate("StatusDescription", "Active"), status.active());
    QStringList leases;
    std::ranges::transform(status.leases(), std::back_inserter(leases), leaseText);
    table.add(QCoreApplication::translate("StatusDescription", "Leases"), leases);
    if (status.sessionEnd() > 0) {
        const auto end = QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(status.sessionEnd() * 1000));
        table.add(QCoreApplication::translate("StatusDescription", "Session"),
            {QCoreApplication::translate("StatusDescription", "until %1").arg(end.toString(u"HH:mm"_s))});
    }
    QStringList holds;
    std::ranges::transform(status.assertions(), std::back_inserter(holds), holdText);
    table.add(QCoreApplication::translate("StatusDescription", "Holds"), holds);
    table.add(QCoreApplication::translate("StatusDescription", "Power"), {powerText(status)});
    table.add(QCoreApplication::translate("StatusDescription", "Heat"), {thermalText(status)});
    if (status.lidClosed()) {
        table.add(QCoreApplication::translate("StatusDescription", "Lid"),
            {QCoreApplication::translate("StatusDescription", "closed")});
    }
    table.add(QCoreApplication::translate("StatusDescription", "Lock key"), {status.lockShortcut()});
    table.add(QCoreApplication::translate("StatusDescription", "Tray"),
        {status.isTrayShown()
                ? QCoreApplication::translate("StatusDescription", "shown")
                : QCoreApplication::translate("StatusDescription", "not shown: no panel offers a place")});
    table.add(QCoreApplication::translate("StatusDescription", "Version"), {status.version()});
    if (status.isUpgradePending()) {
        table.add({},
            {QCoreApplication::translate("StatusDescription",
                "An update is installed. Tarvik restarts when the work has ended and its windows are closed.")});
    }

    return TerminalText::joined(QStringList(status.reason()) + table.lines());
}

QString json(const StatusObject& status)
{
    QJsonObject object{{u"isRunning"_s, true}};
    const QMetaObject& meta = StatusObject::staticMetaObject;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index) {
        QString name = QString::fromLatin1(meta.property(index).name());
        name[0] = name[0].toLower();
        object[name] = toJson(meta.property(index).read(&status));
    }
    object[u"activeAgents"_s] = object.take(u"active"_s);
    if (status.sessionEnd() <= 0)
        object[u"sessionEnd"_s] = QJsonValue::Null;
    if (status.batteryPercent() < 0)
        object[u"batteryPercent"_s] = QJsonValue::Null;
    return TerminalText::json(object);
}

} // namespace Tarvik::StatusDescription
