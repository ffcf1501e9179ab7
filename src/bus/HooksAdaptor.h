// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>

namespace Tarvik {

/// The agents' hooks on the session bus; com.morvanta.Tarvik.Hooks1.xml is the contract.
class HooksAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.morvanta.Tarvik.Hooks1")

public:
    /// Whose configuration is edited, and which tool it is to run.
    struct Paths {
        QString home;
        QString tool;
    };

    /// `object` is what is registered on the bus and owns the adaptor.
    HooksAdaptor(QObject& object, Paths paths, const QDBusConnection& bus);

public Q_SLOTS:
    QStringList InstalledIds() const;
    bool Install(const QString& id, const QDBusMessage& call);
    bool Uninstall(const QString& id, const QDBusMessage& call);

private:
    void refuse(const QString& id, const QDBusMessage& call) const;

    Paths m_paths;
    QDBusConnection m_bus;
};

} // namespace Tarvik
