// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/PropertyMirror.h"

#include <QVariantMap>

namespace Tarvik {

/// The agents' hooks as the running Tarvik finds them in the agents' files. What others write there is not announced,
/// so whoever shows the hooks begins with `refresh()`.
class HooksMirror : public Tarvik::PropertyMirror {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    Q_PROPERTY(QVariantList agents READ agents CONSTANT)
    Q_PROPERTY(QStringList installedIds READ installedIds NOTIFY installedIdsChanged)
    Q_PROPERTY(QVariantMap lastEvents READ lastEvents NOTIFY lastEventsChanged)

public:
    explicit HooksMirror(const QDBusConnection& bus);

    /// Every agent that can be hooked, in the order to show them: objects with "id", "label", "configPath" and "docs".
    /// Whether one is installed is not among them: rows must not be built anew for a switch that is flipped.
    QVariantList agents() const;
    QStringList installedIds() const { return value("installedIds").toStringList(); }
    /// Dates by ids; an agent that has not been heard of is not among them.
    QVariantMap lastEvents() const;

    /// The outcome comes with `changed`.
    Q_INVOKABLE void install(const QString& id);
    Q_INVOKABLE void uninstall(const QString& id);

Q_SIGNALS:
    void installedIdsChanged();
    void lastEventsChanged();
    /// An `install()` or `uninstall()` is over; `installedIds` follows the file.
    void changed(const QString& id, bool succeeded);

private:
    void edit(const QString& method, const QString& id);
};

} // namespace Tarvik
