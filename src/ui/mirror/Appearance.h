// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusSignal.h"

#include <QColor>
#include <QObject>
#include <QVariant>
#include <QtQmlIntegration>

#include <memory>

namespace Tarvik {

/// How the user wants windows to look, as the desktop portal's org.freedesktop.portal.Settings tells it, live. What the
/// portal does not tell keeps a plain default; without a scheme of its own, the palette of the platform decides.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(bool isAnimated READ isAnimated NOTIFY changed)
    Q_PROPERTY(bool isHighContrast READ isHighContrast NOTIFY changed)
    Q_PROPERTY(double textScale READ textScale NOTIFY changed)
    Q_PROPERTY(QString fontFamily READ fontFamily CONSTANT)
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft CONSTANT)

public:
    explicit Appearance(const QDBusConnection& bus);

    bool isDark() const;
    /// Invalid when the user has chosen none.
    QColor accent() const { return m_accent; }
    bool isAnimated() const { return m_isAnimated; }
    bool isHighContrast() const { return m_isHighContrast; }
    /// 1 is the normal size of text; from 0.5 to 3.
    double textScale() const { return m_textScale; }
    /// That of the application.
    QString fontFamily() const;
    /// The language of the texts is read so.
    bool isRightToLeft() const;

    /// The portal has answered, or will not.
    bool isKnown() const { return m_isKnown; }

Q_SIGNALS:
    void changed();
    void known();

private:
    void followOwner();
    void read();
    void takeAll(const QDBusMessage& answer);
    void takeChange(const QDBusMessage& signal);
    bool take(const QString& group, const QString& key, const QVariant& value);

    QDBusConnection m_bus;
    BusNameWatch m_names;
    std::unique_ptr<DBusSignal> m_changes;
    DBusCall m_reading;
    /// 0 no preference, 1 dark, 2 light.
    uint m_colorScheme = 0;
    QColor m_accent;
    bool m_isAnimated = true;
    bool m_isHighContrast = false;
    double m_textScale = 1;
    bool m_isKnown = false;
};

} // namespace Tarvik
