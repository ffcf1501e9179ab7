// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace Tarvik {

/// Announces changes of an object's properties as the D-Bus specification's PropertiesChanged, once for each turn of
/// the event loop and only what differs from the last announcement.
class PropertyAnnouncer : public QObject {
    Q_OBJECT

public:
    /// Which properties are announced and under which name they are on the bus.
    struct Subject {
        /// Must outlive the announcer.
        const QObject& object;
        /// The class whose own properties, not those of its bases, form the interface.
        const QMetaObject& metaObject;
        QString interface;
        /// Properties of which only the fact of a change is announced.
        QStringList withoutValue = {};
    };

    /// Takes the present values for known. The object is Tarvik's own, see StatusWire.
    PropertyAnnouncer(const Subject& subject, const QDBusConnection& bus);

    void announceSoon();
    /// Announces the change of a property that is announced without value.
    void invalidateSoon(const QString& property);

private:
    void announce();
    QVariantMap values() const;

    Subject m_subject;
    QDBusConnection m_bus;
    QVariantMap m_announced;
    QStringList m_invalidated;
    bool m_isScheduled = false;
};

} // namespace Tarvik
