// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/StatusDescription.h"

#include "base/PlainText.h"
#include "bus/StatusObject.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaProperty>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik::StatusDescription {

namespace {

/// That a terminal takes for a text; Chinese and Japanese characters take two each.
qsizetype columns(const QString& text)
{
    return text.size() + std::ranges::count_if(text, [](QChar character) {
        const QChar::Script script = character.script();
        return script == QChar::Script_Han || script == QChar::Script_Hiragana || script == QChar::Script_Katakana
            || script == QChar::Script_Hangul || character.unicode() == 0x30fc;
    });
}

/// Lines of a label and a value; further values of one label stand below each other.
class Table final {
public:
    void add(const QString& label, const QStringList& values)
    {
        for (qsizetype index = 0; index < values.size(); ++index)
            m_rows.append({index == 0 ? label : QString(), values[index]});
    }

    QStringList lines() const
    {
        constexpr qsizetype gap = 2;
        qsizetype width = 0;
        for (const auto& [label, value] : m_rows)
            width = std::max(width, columns(label) + gap);
        QStringList lines;
        for (const auto& [label, value] : m_rows)
            lines.append(u"  "_s + label + QString(width - columns(label), u' ') + value);
        return lines;
    }

private:
    QList<std::pair<QString, QString>> m_rows;
};

QString duration(double seconds)
{
    const auto whole = static_cast<qint64>(std::clamp(std::ceil(seconds), 0.0, 1e9));
    if (whole < 60)
        return QCoreApplication::translate("StatusDescription", "%1 s").arg(whole);
    if (whole < 3600)
        return QCoreApplication::translate("StatusDescription", "%1 min").arg((whole + 59) / 60);
    return QCoreApplication::translate("StatusDescription", "%1 h %2 min").arg(whole / 3600).arg(whole % 3600 / 60);
}

QString leaseText(const StatusLease& lease)
{
    const QString text = QCoreApplication::translate("StatusDescription", "%1, %2 left, %3")
                             .arg(lease.tool, duration(lease.remaining), lease.key);
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

/// What would steer a terminal in the form of an escape. None of it can stand outside a string.
QString escaped(const QString& json)
{
    QString result;
    for (const QChar character : json) {
        if (PlainText::isControl(character.unicode()))
            result += u"\\u%1"_s.arg(character.unicode(), 4, 16, QChar(u'0'));
        else
            result += character;
    }
    return result;
}

} // namespace

QString text(const StatusObject& status)
{
    Table table;
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

    QString text;
    for (const QString& line : QStringList(status.reason()) + table.lines())
        text += QString::fromStdString(PlainText::printable(line.toStdString())) + u'\n';
    return text.chopped(1);
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
    return escaped(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

} // namespace Tarvik::StatusDescription
