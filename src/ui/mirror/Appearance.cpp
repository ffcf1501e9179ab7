// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/Appearance.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const auto portalName = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto settingsInterface = u"org.freedesktop.portal.Settings"_s;

const auto appearanceGroup = u"org.freedesktop.appearance"_s;
const auto interfaceGroup = u"org.gnome.desktop.interface"_s;
const auto accessibilityGroup = u"org.gnome.desktop.a11y.interface"_s;

using Groups = QMap<QString, QVariantMap>;

/// Three components from 0 to 1; anything else means that no colour is chosen.
QColor accentFrom(const QVariant& value)
{
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)"_L1)
        return {};
    double red = -1;
    double green = -1;
    double blue = -1;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto fits = [](double component) { return component >= 0 && component <= 1; };
    if (!fits(red) || !fits(green) || !fits(blue))
        return {};
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue));
}

template <typename T>
bool assign(T& field, const T& value)
{
    return std::exchange(field, value) != value;
}

} // namespace

Appearance::Appearance(const QDBusConnection& bus)
    : m_bus(bus)
    , m_names(bus, {portalName})
{
    qDBusRegisterMetaType<Groups>();
    m_names.onKnown = [this] { followOwner(); };
    m_names.onOwnerChange = [this](const QString&) { followOwner(); };
    // Which starts the portal where it is not running.
    read();
}

bool Appearance::isDark() const
{
    if (m_colorScheme != 0)
        return m_colorScheme == 1;
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QString Appearance::fontFamily() const
{
    return QGuiApplication::font().family();
}

bool Appearance::isRightToLeft() const
{
    return QGuiApplication::isRightToLeft();
}

void Appearance::followOwner()
{
    m_changes.reset();
    const QString owner = m_names.owner(portalName);
    if (owner.isEmpty())
        return;
    m_changes = std::make_unique<DBusSignal>(m_bus,
        DBusSignal::Source{owner, portalPath, settingsInterface, u"SettingChanged"_s, {}},
        [this](const QDBusMessage& signal) { takeChange(signal); });
    // What has changed before that.
    read();
}

void Appearance::read()
{
    auto message = QDBusMessage::createMethodCall(portalName, portalPath, settingsInterface, u"ReadAll"_s);
    message << QStringList{appearanceGroup, interfaceGroup, accessibilityGroup};
    m_reading = callAsync(m_bus,
        message,
        [this](const QDBusMessage& answer) {
            m_reading.reset();
            takeAll(answer);
        },
        {.startsService = true});
}

void Appearance::takeAll(const QDBusMessage& answer)
{
    Groups groups;
    if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == "a{sa{sv}}"_L1)
        groups = qdbus_cast<Groups>(answer.arguments().constFirst());
    bool hasChanged = false;
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        for (auto setting = group->begin(); setting != group->end(); ++setting)
            hasChanged = take(group.key(), setting.key(), setting.value()) || hasChanged;
    }
    if (hasChanged)
        Q_EMIT changed();
    if (!std::exchange(m_isKnown, true))
        Q_EMIT known();
}

void Appearance::takeChange(const QDBusMessage& signal)
{
    if (signal.signature() != "ssv"_L1)
        return;
    const QVariantList arguments = signal.arguments();
    if (take(arguments.at(0).toString(), arguments.at(1).toString(), arguments.at(2).value<QDBusVariant>().variant()))
        Q_EMIT changed();
}

bool Appearance::take(const QString& group, const QString& key, const QVariant& value)
{
    const auto holds = [&](QMetaType::Type type) { return value.typeId() == type; };
    if (group == appearanceGroup && key == "color-scheme"_L1 && holds(QMetaType::UInt))
        return assign(m_colorScheme, value.toUInt());
    if (group == appearanceGroup && key == "accent-color"_L1)
        return assign(m_accent, accentFrom(value));
    if (group == appearanceGroup && key == "contrast"_L1 && holds(QMetaType::UInt))
        return assign(m_isHighContrast, value.toUInt() == 1);
    if (group == accessibilityGroup && key == "high-contrast"_L1 && holds(QMetaType::Bool))
        return assign(m_isHighContrast, value.toBool());
    if (group == interfaceGroup && key == "enable-animations"_L1 && holds(QMetaType::Bool))
        return assign(m_isAnimated, value.toBool());
    if (group == interfaceGroup && key == "text-scaling-factor"_L1 && holds(QMetaType::Double))
        return assign(m_textScale, std::clamp(value.toDouble(), 0.5, 3.0));
    return false;
}

} // namespace Tarvik
