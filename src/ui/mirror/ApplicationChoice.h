// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/InstalledApplication.h"
#include "dbus/DBusCall.h"
#include "dbus/PortalRequest.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantList>
#include <QtQmlIntegration>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

class SettingsMirror;

/// The applications that the user can put on the allow-list: those of the desktop's menu, and by a desktop file, which
/// the desktop portal's org.freedesktop.portal.FileChooser has the user choose, any other.
class ApplicationChoice : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    Q_PROPERTY(QVariantList applications READ applications NOTIFY applicationsChanged)
    Q_PROPERTY(bool canBrowse READ canBrowse NOTIFY canBrowseChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)

public:
    /// Where applications are found; without a function there are none.
    struct Sources {
        std::function<QList<InstalledApplication>()> installed;
        std::function<std::optional<InstalledApplication>(const QString& path)> ofFile;
    };

    /// `settings` must outlive the object.
    ApplicationChoice(Sources sources, SettingsMirror& settings, const QDBusConnection& bus);

    /// Objects with "bundleID", "name", "icon" and "caption", which may be empty and tells whether it is open and, of
    /// those of one name, which it is. Those that are open come first; within that the order is that of the names.
    /// Tarvik itself is not among them. None before `refresh()`.
    const QVariantList& applications() const { return m_applications; }
    /// Whether there is a portal that lets the user choose a file.
    bool canBrowse() const { return m_canBrowse; }
    /// Why the file that was chosen last was not added, for the user; empty when it was.
    const QString& problem() const { return m_problem; }

    /// Finds out anew what there is; the answer comes later.
    Q_INVOKABLE void refresh();
    /// Has the user choose a desktop file.
    Q_INVOKABLE void browse();

Q_SIGNALS:
    void applicationsChanged();
    void canBrowseChanged();
    void problemChanged();
    /// The application whose file was chosen is on the allow-list now.
    void added();

private:
    void list(const QStringList& runningIds);
    void setCanBrowse(bool on);
    void take(const QVariantMap* results);
    void setProblem(const QString& problem);

    Sources m_sources;
    SettingsMirror& m_settings;
    QDBusConnection m_bus;
    QVariantList m_applications;
    bool m_canBrowse = false;
    QString m_problem;
    DBusCall m_portalQuestion;
    std::unique_ptr<PortalRequest> m_request;
};

} // namespace Tarvik
