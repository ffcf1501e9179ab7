// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/WireValue.h"

#include <QDBusArgument>
#include <QDBusMetaType>

namespace Tarvik::WireValue {

QString signatureOf(QMetaType type)
{
    return QString::fromLatin1(QDBusMetaType::typeToSignature(type));
}

QVariant as(QMetaType type, const QVariant& value)
{
    if (value.metaType() == type)
        return value;
    // Whatever is neither basic nor a list of texts, bytes or variants arrives unread.
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    QVariant result(type);
    const bool isRead
        = argument.currentSignature() == signatureOf(type) && QDBusMetaType::demarshall(argument, type, result.data());
    return isRead ? result : QVariant();
}

std::optional<QDateTime> toDateTime(double seconds)
{
    constexpr double first = -62'135'596'800;
    constexpr double last = 253'402'300'799;
    if (!(seconds >= first && seconds <= last))
        return {};
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(seconds * 1000));
}

} // namespace Tarvik::WireValue
