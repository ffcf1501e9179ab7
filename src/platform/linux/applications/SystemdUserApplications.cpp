// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/SystemdUserApplications.h"

#include "dbus/DBusProperties.h"
#include "platform/linux/applications/UnitNames.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.systemd1"_s;
const auto managerPath = u"/org/freedesktop/systemd1"_s;
const auto managerInterface = u"org.freedesktop.systemd1.Manager"_s;
const auto unitInterface = u"org.freedesktop.systemd1.Unit"_s;
const auto unitListSignature = u"a(ssssssouso)"_s;

QDBusMessage managerCall(const QString& method)
{
    return QDBusMessage::createMethodCall(service, managerPath, managerInterface, method);
}

QHash<QString, QString> applicationUnits(const QDBusArgument& list)
{
    QHash<QString, QString> units;
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QString ignored;
        QDBusObjectPath path;
        list.beginStructure();
        list >> name >> ignored >> ignored >> ignored >> ignored >> ignored >> path;
        list.endStructure();
        if (const auto id = UnitNames::desktopId(name))
            units.insert(path.path(), *id);
    }
    list.endArray();
    return units;
}

} // namespace

SystemdUserApplications::SystemdUserApplications(const QDBusConnection& sessionBus)
    : m_bus(sessionBus)
    , m_names(m_bus, {service})
{
    m_names.onKnown = [this] { followOwner(); };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
}

QList<RunningApplication> SystemdUserApplications::list() const
{
    QList<RunningApplication> applications;
    for (const QString& id : m_units)
        applications.append({.id = id, .localizedName = {}});
    return applications;
}

void SystemdUserApplications::followOwner()
{
    m_request.reset();
    m_requestAgain = false;
    setUnits({});
    m_signals.reset();
    const QString owner = m_names.owner(service);
    if (owner.isEmpty())
        return;
    m_signals = std::make_unique<DBusSignal>(m_bus,
        DBusSignal::Source{owner, managerPath, managerInterface, {}, {}},
        [this](const QDBusMessage& signal) { takeSignal(signal); });
    m_subscribing = callAsync(m_bus, managerCall(u"Subscribe"_s), [](const QDBusMessage&) {});
    requestUnits();
}

void SystemdUserApplications::takeSignal(const QDBusMessage& signal)
{
    // "UnitNew" and "UnitRemoved" (name, path), "JobRemoved" (id, path, name, result).
    const qsizetype position = signal.member() == "JobRemoved"_L1 ? 2 : 0;
    if (UnitNames::desktopId(signal.arguments().value(position).toString()))
        requestUnits();
}

void SystemdUserApplications::requestUnits()
{
    if (m_request) {
        m_requestAgain = true;
        return;
    }
    m_requestAgain = false;
    auto call = managerCall(u"ListUnitsByPatterns"_s);
    call << QStringList{u"active"_s} << QStringList{u"app-*.scope"_s, u"app-*.service"_s, u"snap.*.scope"_s};
    m_request = callAsync(m_bus, call, [this](const QDBusMessage& answer) {
        m_request.reset();
        if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == unitListSignature)
            setUnits(applicationUnits(answer.arguments().constFirst().value<QDBusArgument>()));
        if (m_requestAgain)
            requestUnits();
    });
}

void SystemdUserApplications::setUnits(const QHash<QString, QString>& units)
{
    // A service that fails stays loaded, so that only its own properties tell that it has ended.
    std::erase_if(m_unitChanges, [&](const auto& unit) { return !units.contains(unit.first); });
    for (auto it = units.keyBegin(); it != units.keyEnd(); ++it) {
        m_unitChanges.try_emplace(*it,
            m_bus,
            DBusProperties::changesOf(m_names.owner(service), *it, unitInterface),
            [this](const QDBusMessage&) { requestUnits(); });
    }
    if (std::exchange(m_units, units) != units)
        changed();
}

} // namespace Tarvik
