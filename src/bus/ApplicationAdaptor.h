// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QVariantMap>

#include <functional>

namespace Tarvik {

/// The interface org.freedesktop.Application of the Desktop Entry Specification: a launcher, or a second start of the
/// application, asks the running one to show itself.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// `object` is what is registered on the bus and owns the adaptor.
    explicit ApplicationAdaptor(QObject& object)
        : QDBusAbstractAdaptor(&object)
    {
    }

    /// `platformData` may hold "activation-token" and "desktop-startup-id".
    std::function<void(const QVariantMap& platformData)> onActivate;

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    /// Tarvik opens no files and has no actions; both only activate.
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);
};

} // namespace Tarvik
