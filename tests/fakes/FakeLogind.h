// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"
#include "fakes/FakeDBusService.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QHash>
#include <QList>
#include <QStringList>
#include <QVariantMap>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace Tarvik {

/// A row of the answer to ListInhibitors.
struct FakeInhibitorRow {
    QString what;
    quint32 user = 0;
    quint32 process = 0;
    QString who = QStringLiteral("somebody");
    QString mode = QStringLiteral("block");
};

inline QDBusArgument& operator<<(QDBusArgument& argument, const FakeInhibitorRow& row)
{
    argument.beginStructure();
    argument << row.what << row.who << QStringLiteral("because") << row.mode << row.user << row.process;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, FakeInhibitorRow&)
{
    return argument;
}

/// org.freedesktop.login1: its manager, the user of this process, and sessions. It answers as it would by what the test
/// has put into it, or to any question as the test says.
class FakeLogind final : public FakeDBusService {
public:
    /// Questions that tests name: a method of the manager, or a property.
    static inline const auto inhibit = QStringLiteral("Inhibit");
    static inline const auto listInhibitors = QStringLiteral("ListInhibitors");
    static inline const auto suspend = QStringLiteral("Suspend");
    static inline const auto processSession = QStringLiteral("GetSessionByPID");
    static inline const auto user = QStringLiteral("GetUser");
    static inline const auto display = QStringLiteral("Display");
    static inline const auto state = QStringLiteral("State");
    static inline const auto lidClosed = QStringLiteral("LidClosed");

    explicit FakeLogind(QDBusConnection bus)
        : FakeDBusService(std::move(bus), QStringLiteral("org.freedesktop.login1"), root(), QDBusConnection::SubPath)
    {
        qDBusRegisterMetaType<FakeInhibitorRow>();
        qDBusRegisterMetaType<QList<FakeInhibitorRow>>();
        qDBusRegisterMetaType<UserDisplay>();
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// Of the manager.
    QVariantMap properties{
        {lidClosed, false}, {QStringLiteral("Docked"), false}, {QStringLiteral("OnExternalPower"), true}};
    /// What it lists; those that it grants are not among them.
    QList<FakeInhibitorRow> inhibitors;
    /// The session that the process runs in; nothing below the user's systemd.
    std::optional<QString> sessionOfProcess;
    /// The session of the user's display, or an empty text; nothing when the user is unknown.
    std::optional<QString> sessionOfUser;
    /// Of each session by its identifier.
    QHash<QString, QString> states;

    /// Gives another answer, a value or with `failWith` an error, to one of the questions.
    void answerWith(const QString& question, const QVariant& value) { m_values.insert(question, value); }
    void failWith(const QString& question, QDBusError::ErrorType error)
    {
        failWith(question, QDBusError::errorString(error));
    }
    void failWith(const QString& question, const QString& errorName) { m_errors.insert(question, errorName); }
    void recover(const QString& question) { m_errors.remove(question); }

    /// Leaves this question without an answer until `answerNow()`.
    void answerLater(const QString& question) { m_postponed = question; }
    void answerNow()
    {
        m_postponed.clear();
        for (const QDBusMessage& call : std::exchange(m_waiting, {}))
            m_bus.send(answerAtOnce(call));
    }
    bool isWaiting() const { return !m_waiting.isEmpty(); }

    /// Says that a property of the manager has changed, as only newer releases do for the lid.
    void announce(const QString& property)
    {
        emitSignal(QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("PropertiesChanged"),
            {manager(), QVariantMap{{property, properties[property]}}, QStringList()});
    }

    /// Each question so far, empty for what logind would not understand, and the arguments that each came with.
    QStringList questions;
    QHash<QString, QList<QVariantList>> arguments;

    /// The arguments of each inhibitor that is held now, oldest first: until nobody has its file descriptor open.
    QList<QVariantList> held() const
    {
        QList<QVariantList> list;
        for (const auto& [readEnd, granted] : m_locks) {
            pollfd writers{.fd = readEnd.get(), .events = 0, .revents = 0};
            if (poll(&writers, 1, 0) == 0)
                list.append(granted);
        }
        return list;
    }

private:
    using UserDisplay = std::pair<QString, QDBusObjectPath>;

    static QString root() { return QStringLiteral("/org/freedesktop/login1"); }
    static QString userPath() { return root() + QStringLiteral("/user/self_of_test"); }
    static QString sessionPath(const QString& id) { return root() + QStringLiteral("/session/_") + id; }
    QString manager() const { return service() + QStringLiteral(".Manager"); }

    /// Asking about another process or user is none.
    QString questionIn(const QDBusMessage& call) const
    {
        if (call.interface() == QStringLiteral("org.freedesktop.DBus.Properties"))
            return propertyIn(call);
        static const QHash<QString, QString> signatures{{inhibit, QStringLiteral("ssss")},
            {listInhibitors, QString()},
            {suspend, QStringLiteral("b")},
            {processSession, QStringLiteral("u")},
            {user, QStringLiteral("u")}};
        const QString method = call.member();
        if (call.path() != root() || call.interface() != manager() || !signatures.contains(method)
            || signatures[method] != call.signature())
            return {};
        const uint number = call.arguments().value(0).toUInt();
        const bool isOfAnother = (method == processSession && number != static_cast<uint>(getpid()))
            || (method == user && number != getuid());
        return isOfAnother ? QString() : method;
    }

    QString propertyIn(const QDBusMessage& call) const
    {
        const QString kind = call.path() == root() ? QStringLiteral(".Manager")
            : call.path() == userPath()            ? QStringLiteral(".User")
                                                   : QStringLiteral(".Session");
        if (call.arguments().value(0).toString() != service() + kind)
            return {};
        return call.member() == QStringLiteral("Get") ? call.arguments().value(1).toString() : call.member();
    }

    QDBusMessage answer(const QDBusMessage& call)
    {
        const QString question = questionIn(call);
        questions.append(question);
        arguments[question].append(call.arguments());
        if (question != m_postponed || question.isEmpty())
            return answerAtOnce(call);
        m_waiting.append(call);
        return {};
    }

    QDBusMessage answerAtOnce(const QDBusMessage& call)
    {
        const QString question = questionIn(call);
        if (m_errors.contains(question))
            return call.createErrorReply(m_errors[question], QStringLiteral("refused"));
        if (m_values.contains(question))
            return call.createReply(m_values[question]);
        if (question == inhibit)
            return grant(call);
        if (question == listInhibitors)
            return call.createReply(QVariant::fromValue(inhibitors));
        if (question == suspend)
            return call.createReply();
        if (question == processSession)
            return pathReply(call,
                sessionOfProcess ? sessionPath(*sessionOfProcess) : QString(),
                QStringLiteral(".NoSessionForPID"));
        if (question == user)
            return pathReply(call, sessionOfUser ? userPath() : QString(), QStringLiteral(".NoSuchUser"));
        if (question == QStringLiteral("GetAll") && call.path() == root())
            return call.createReply(properties);
        const QVariant value = valueOf(question, call.path());
        return value.isValid() ? call.createReply(QVariant::fromValue(QDBusVariant(value)))
                               : call.createErrorReply(QDBusError::UnknownMethod, call.member());
    }

    QVariant valueOf(const QString& property, const QString& path) const
    {
        const QString session = path.mid(sessionPath({}).size());
        if (path == root())
            return properties.value(property);
        if (property == state && states.contains(session))
            return states[session];
        if (property != display || !sessionOfUser)
            return {};
        const QString ofUser = sessionOfUser->isEmpty() ? QStringLiteral("/") : sessionPath(*sessionOfUser);
        return QVariant::fromValue(UserDisplay(*sessionOfUser, ofUser));
    }

    QDBusMessage grant(const QDBusMessage& call)
    {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            qFatal("pipe2 failed");
        m_locks.emplace_back(FileDescriptor(ends[0]), call.arguments());
        QDBusUnixFileDescriptor writeEnd;
        writeEnd.giveFileDescriptor(ends[1]);
        return call.createReply(QVariant::fromValue(writeEnd));
    }

    QDBusMessage pathReply(const QDBusMessage& call, const QString& path, const QString& error) const
    {
        return path.isEmpty() ? call.createErrorReply(service() + error, QStringLiteral("There is none"))
                              : call.createReply(QVariant::fromValue(QDBusObjectPath(path)));
    }

    QHash<QString, QVariant> m_values;
    QHash<QString, QString> m_errors;
    QString m_postponed;
    QList<QDBusMessage> m_waiting;
    /// What tells whether the inhibitor is held, and the arguments that it was asked for with.
    std::vector<std::pair<FileDescriptor, QVariantList>> m_locks;
};

} // namespace Tarvik
