// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/PropertyMirror.h"

#include "core/Logging.h"
#include "dbus/DBusErrors.h"
#include "dbus/WireValue.h"
#include "dbus/contracts/TarvikWire.h"

#include <QDBusVariant>
#include <QMetaProperty>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto busName = QString::fromLatin1(TarvikWire::busName);
const auto objectPath = QString::fromLatin1(TarvikWire::objectPath);

/// What is "OnAC" on the bus is "isOnAC" here: QML reads capitals as types and "on…" as handlers of signals.
QString nameInQml(QString name)
{
    if (name[0].isUpper() && name.startsWith("On"_L1))
        name.prepend(u"Is"_s);
    name[0] = name[0].toLower();
    return name;
}

/// A Tarvik that is gone needs no words: the windows go with it.
bool deservesWarning(const QDBusMessage& answer)
{
    return answer.type() == QDBusMessage::ErrorMessage && !DBusErrors::isPeerGone(answer.errorName());
}

} // namespace

PropertyMirror::PropertyMirror(
    const QDBusConnection& bus, const QMetaObject& metaObject, const char* interface, const QVariantMap& initial)
    : m_bus(bus)
    , m_metaObject(metaObject)
    , m_interface(QString::fromLatin1(interface))
    , m_names(bus, {busName})
{
    for (int index = metaObject.propertyOffset(); index < metaObject.propertyCount(); ++index) {
        const QMetaProperty property = metaObject.property(index);
        const QString name = QString::fromLatin1(property.name());
        if (property.hasNotifySignal())
            m_values[name] = initial.value(name, QVariant(property.metaType()));
    }
    if (m_names.isKnown())
        QMetaObject::invokeMethod(this, &PropertyMirror::followOwner, Qt::QueuedConnection);
    m_names.onKnown = [this] { followOwner(); };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
}

void PropertyMirror::followOwner()
{
    m_remote.reset();
    const QString owner = m_names.owner(busName);
    if (owner.isEmpty()) {
        setConnected(false);
        Q_EMIT lost();
        return;
    }
    m_remote = std::make_unique<RemoteProperties>(m_bus, RemoteProperties::Place{owner, objectPath, m_interface});
    m_remote->onChange = [this](const QVariantMap& values) {
        take(values);
        setConnected(true);
    };
    m_remote->onFailure = [this](const QDBusMessage&) {
        setConnected(false);
        Q_EMIT lost();
    };
}

void PropertyMirror::refresh()
{
    if (m_remote)
        m_remote->read();
}

void PropertyMirror::take(const QVariantMap& values)
{
    QStringList changed;
    for (auto it = values.begin(); it != values.end(); ++it) {
        const QString name = nameInQml(it.key());
        const auto known = m_values.find(name);
        if (known == m_values.end() || m_writes.contains(name))
            continue;
        const QVariant value = WireValue::as(known->metaType(), it.value());
        if (!value.isValid()) {
            qCWarning(logSystem, "Tarvik sent %ls as %s", qUtf16Printable(it.key()), it.value().typeName());
            continue;
        }
        if (*known == value)
            continue;
        *known = value;
        changed.append(name);
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
    const auto message = DBusProperties::set(busName, objectPath, m_interface, name, value);
    m_calls.send(m_bus, message, [this, name](const QDBusMessage& answer) {
        if (deservesWarning(answer))
            qCWarning(logSystem, "%ls was not set: %ls", qUtf16Printable(name), qUtf16Printable(answer.errorMessage()));
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
    auto message = QDBusMessage::createMethodCall(busName, objectPath, m_interface, method);
    message.setArguments(arguments);
    m_calls.send(m_bus, message, [method, done = std::move(done)](const QDBusMessage& answer) {
        if (done)
            done(answer);
        else if (deservesWarning(answer))
            qCWarning(logSystem, "%ls failed: %ls", qUtf16Printable(method), qUtf16Printable(answer.errorMessage()));
    });
}

void PropertyMirror::setConnected(bool connected)
{
    if (std::exchange(m_isConnected, connected) != connected)
        Q_EMIT connectedChanged();
}

} // namespace Tarvik
