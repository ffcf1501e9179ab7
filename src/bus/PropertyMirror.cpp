// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/PropertyMirror.h"

#include "bus/WireValue.h"
#include "core/Logging.h"
#include "platform/StatusWire.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QMetaProperty>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const auto busName = QString::fromLatin1(StatusWire::busName);
const auto objectPath = QString::fromLatin1(StatusWire::objectPath);

} // namespace

PropertyMirror::PropertyMirror(
    const QDBusConnection& bus, const QMetaObject& metaObject, const char* interface, const QVariantMap& initial)
    : m_bus(bus)
    , m_metaObject(metaObject)
    , m_interface(QString::fromLatin1(interface))
    , m_serviceWatcher(busName, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    for (int index = metaObject.propertyOffset(); index < metaObject.propertyCount(); ++index) {
        const QMetaProperty property = metaObject.property(index);
        const QString name = QString::fromLatin1(property.name());
        if (property.hasNotifySignal())
            m_values[name] = initial.value(name, QVariant(property.metaType()));
    }
    connect(&m_serviceWatcher,
        &QDBusServiceWatcher::serviceOwnerChanged,
        this,
        [this](const QString&, const QString&, const QString& newOwner) { followOwner(newOwner); });
    m_bus.connect(busName,
        objectPath,
        propertiesInterface,
        u"PropertiesChanged"_s,
        {m_interface},
        QString(),
        this,
        SLOT(takeChanges(QString, QVariantMap, QStringList)));
    refresh();
}

void PropertyMirror::followOwner(const QString& newOwner)
{
    if (!newOwner.isEmpty()) {
        refresh();
        return;
    }
    delete std::exchange(m_reading, nullptr);
    setConnected(false);
    Q_EMIT lost();
}

void PropertyMirror::refresh()
{
    delete m_reading;
    m_reading = send(propertiesInterface, u"GetAll"_s, {m_interface});
    connect(m_reading, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* call) {
        m_reading = nullptr;
        call->deleteLater();
        const QDBusPendingReply<QVariantMap> reply = *call;
        if (reply.isError()) {
            setConnected(false);
            Q_EMIT lost();
            return;
        }
        take(reply.value());
        setConnected(true);
    });
}

void PropertyMirror::takeChanges(const QString&, const QVariantMap& changed, const QStringList& invalidated)
{
    take(changed);
    if (!invalidated.isEmpty())
        refresh();
}

void PropertyMirror::take(const QVariantMap& values)
{
    QStringList changed;
    for (auto it = values.begin(); it != values.end(); ++it) {
        const auto known = m_values.find(it.key());
        if (known == m_values.end() || m_writes.contains(it.key()))
            continue;
        const QVariant value = WireValue::as(known->metaType(), it.value());
        if (!value.isValid()) {
            qCWarning(logSystem, "Tarvik sent %ls as %s", qUtf16Printable(it.key()), it.value().typeName());
            continue;
        }
        if (*known == value)
            continue;
        *known = value;
        changed.append(it.key());
    }
    for (const QString& name : std::as_const(changed))
        notify(name);
}

void PropertyMirror::notify(const QString& property)
{
    const int index = m_metaObject.indexOfProperty(property.toLatin1().constData());
    m_metaObject.property(index).notifySignal().invoke(this, Qt::DirectConnection);
}

void PropertyMirror::write(const char* property, const QVariant& value)
{
    const QString name = QString::fromLatin1(property);
    if (m_values[name] == value)
        return;
    m_values[name] = value;
    ++m_writes[name];
    notify(name);
    auto* watcher = send(propertiesInterface, u"Set"_s, {m_interface, name, QVariant::fromValue(QDBusVariant(value))});
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, name](QDBusPendingCallWatcher* call) {
        call->deleteLater();
        if (call->isError())
            qCWarning(
                logSystem, "%ls was not set: %ls", qUtf16Printable(name), qUtf16Printable(call->error().message()));
        if (--m_writes[name] > 0)
            return;
        m_writes.remove(name);
        if (m_isConnected)
            refresh();
    });
}

void PropertyMirror::call(
    const QString& method, const QVariantList& arguments, std::function<void(const QDBusMessage& answer)> done)
{
    auto* watcher = send(m_interface, method, arguments);
    connect(watcher,
        &QDBusPendingCallWatcher::finished,
        this,
        [method, done = std::move(done)](QDBusPendingCallWatcher* call) {
            call->deleteLater();
            if (done)
                done(call->reply());
            else if (call->isError())
                qCWarning(
                    logSystem, "%ls failed: %ls", qUtf16Printable(method), qUtf16Printable(call->error().message()));
        });
}

void PropertyMirror::setConnected(bool connected)
{
    if (std::exchange(m_isConnected, connected) != connected)
        Q_EMIT connectedChanged();
}

QDBusPendingCallWatcher* PropertyMirror::send(
    const QString& interface, const QString& method, const QVariantList& arguments)
{
    auto message = QDBusMessage::createMethodCall(busName, objectPath, interface, method);
    message.setArguments(arguments);
    // A window is no reason to start Tarvik behind the user's back.
    message.setAutoStartService(false);
    return new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
}

} // namespace Tarvik
