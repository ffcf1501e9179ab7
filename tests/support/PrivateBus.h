// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace Tarvik {

/// A message bus in the system bus's place whose services, and whose life, a test decides on.
class PrivateBus {
public:
    PrivateBus()
    {
        QFile configuration(m_directory.filePath(QStringLiteral("bus.conf")));
        if (!QDir(m_directory.path()).mkdir(QStringLiteral("services")) || !configuration.open(QIODevice::WriteOnly))
            return;
        const QString policy
            = QStringLiteral("<policy context=\"default\"><allow send_destination=\"*\"/><allow own=\"*\"/>"
                             "<allow eavesdrop=\"false\"/></policy>");
        configuration.write(QStringLiteral("<busconfig><type>session</type><listen>%1</listen>"
                                           "<servicedir>%2</servicedir>%3</busconfig>")
                                .arg(address(), m_directory.filePath(QStringLiteral("services")), policy)
                                .toUtf8());
        configuration.close();
        m_daemon.start(QStringLiteral("dbus-daemon"),
            {QStringLiteral("--nofork"),
                QStringLiteral("--print-address"),
                QStringLiteral("--config-file=") + configuration.fileName()});
        m_isReady = m_daemon.waitForReadyRead();
    }
    ~PrivateBus()
    {
        for (const QString& name : m_connections)
            QDBusConnection::disconnectFromBus(name);
        stop();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    bool isReady() const { return m_isReady; }

    QDBusConnection connect(const QString& name)
    {
        m_connections.append(name);
        return QDBusConnection::connectToBus(address(), name);
    }

    void stop()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    qint64 processId() const { return m_daemon.processId(); }

    /// The bus knows from now on that `command` starts this service.
    bool addService(const QString& name, const QString& command)
    {
        QFile file(serviceFile(name));
        return file.open(QIODevice::WriteOnly)
            && file.write(QStringLiteral("[D-BUS Service]\nName=%1\nExec=%2\n").arg(name, command).toUtf8()) > 0
            && file.flush() && reload();
    }

    bool removeService(const QString& name) { return QFile::remove(serviceFile(name)) && reload(); }

    QString address() const { return QStringLiteral("unix:path=") + m_directory.filePath(QStringLiteral("bus")); }

private:
    QString serviceFile(const QString& name) const
    {
        return m_directory.filePath(QStringLiteral("services/%1.service").arg(name));
    }

    bool reload()
    {
        const auto name = QStringLiteral("org.freedesktop.DBus");
        const auto call = QDBusMessage::createMethodCall(
            name, QStringLiteral("/org/freedesktop/DBus"), name, QStringLiteral("ReloadConfig"));
        return connect(QStringLiteral("private-bus")).call(call).type() == QDBusMessage::ReplyMessage;
    }

    QTemporaryDir m_directory;
    QProcess m_daemon;
    QStringList m_connections;
    bool m_isReady = false;
};

} // namespace Tarvik
