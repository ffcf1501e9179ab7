// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QHash>
#include <QStringList>

#include <unistd.h>

#include <optional>
#include <utility>

namespace Tarvik {

/// A user's property Display: a session, or none when the identifier is empty.
struct FakeUserDisplay {
    QString sessionId;
    QDBusObjectPath sessionPath;
};

inline QDBusArgument& operator<<(QDBusArgument& argument, const FakeUserDisplay& display)
{
    argument.beginStructure();
    argument << display.sessionId << display.sessionPath;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument& operator>>(const QDBusArgument& argument, FakeUserDisplay&)
{
    return argument;
}

/// org.freedesktop.login1, as far as it tells of the sessions of this process and its user.
class FakeLogindLogin final : public FakeDBusService {
public:
    /// What can be asked for, in the order in which it is.
    static inline const auto processSession = QStringLiteral("GetSessionByPID");
    static inline const auto user = QStringLiteral("GetUser");
    static inline const auto display = QStringLiteral("Display");
    static inline const auto state = QStringLiteral("State");

    explicit FakeLogindLogin(QDBusConnection bus)
        : FakeDBusService(std::move(bus), QStringLiteral("org.freedesktop.login1"), root(), QDBusConnection::SubPath)
    {
        qDBusRegisterMetaType<FakeUserDisplay>();
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// The session that the process runs in; nothing below the user's systemd.
    std::optional<QString> sessionOfProcess;
    /// The session of the user's display, or an empty text; nothing when the user is unknown.
    std::optional<QString> sessionOfUser;
    /// Of each session by its identifier.
    QHash<QString, QString> states;

    /// Gives another answer, a value or with `failWith` an error, to one of the questions.
    void answerWith(const QString& question, const QVariant& value) { m_values.insert(question, value); }
    void failWith(const QString& question, const QString& error) { m_errors.insert(question, error); }

    /// Leaves this question without an answer until `answerNow()`.
    void answerLater(const QString& question) { m_postponed = question; }
    void answerNow()
    {
        m_postponed.clear();
        for (const QDBusMessage& call : std::exchange(m_waiting, {}))
            m_bus.send(answerAtOnce(call));
    }
    bool isWaiting() const { return !m_waiting.isEmpty(); }

    /// Each question so far.
    QStringList questions;

private:
    static QString root() { return QStringLiteral("/org/freedesktop/login1"); }
    static QString userPath() { return root() + QStringLiteral("/user/self_of_test"); }
    static QString sessionPath(const QString& id) { return root() + QStringLiteral("/session/_") + id; }

    /// Empty for anything that logind would not understand.
    QString questionIn(const QDBusMessage& call) const
    {
        const QVariantList arguments = call.arguments();
        if (call.path() == root() && call.interface() == service() + QStringLiteral(".Manager")
            && call.signature() == QStringLiteral("u")) {
            const bool isOurs
                = arguments.at(0).toUInt() == (call.member() == user ? getuid() : static_cast<unsigned int>(getpid()));
            return isOurs ? call.member() : QString();
        }
        if (call.interface() != QStringLiteral("org.freedesktop.DBus.Properties")
            || call.member() != QStringLiteral("Get") || call.signature() != QStringLiteral("ss"))
            return {};
        const auto asked = std::pair(arguments.at(0).toString(), arguments.at(1).toString());
        if (call.path() == userPath() && asked == std::pair(service() + QStringLiteral(".User"), display))
            return display;
        if (asked == std::pair(service() + QStringLiteral(".Session"), state))
            return state;
        return {};
    }

    QDBusMessage answer(const QDBusMessage& call)
    {
        const QString question = questionIn(call);
        questions.append(question);
        if (question != m_postponed || question.isEmpty())
            return answerAtOnce(call);
        m_waiting.append(call);
        return {};
    }

    QDBusMessage answerAtOnce(const QDBusMessage& call) const
    {
        const QString question = questionIn(call);
        if (m_errors.contains(question))
            return call.createErrorReply(m_errors[question], QStringLiteral("refused"));
        if (m_values.contains(question))
            return call.createReply(m_values[question]);
        if (question == processSession)
            return sessionOfProcess ? pathReply(call, sessionPath(*sessionOfProcess)) : noSuch(call, "NoSessionForPID");
        if (question == user)
            return sessionOfUser ? pathReply(call, userPath()) : noSuch(call, "NoSuchUser");
        if (question == display) {
            const QString path = sessionOfUser->isEmpty() ? QStringLiteral("/") : sessionPath(*sessionOfUser);
            return valueReply(call, QVariant::fromValue(FakeUserDisplay{*sessionOfUser, QDBusObjectPath(path)}));
        }
        const QString session = call.path().mid(sessionPath({}).size());
        if (question == state && states.contains(session))
            return valueReply(call, states[session]);
        return call.createErrorReply(QDBusError::UnknownObject, QStringLiteral("Unknown object"));
    }

    static QDBusMessage pathReply(const QDBusMessage& call, const QString& path)
    {
        return call.createReply(QVariant::fromValue(QDBusObjectPath(path)));
    }

    static QDBusMessage valueReply(const QDBusMessage& call, const QVariant& value)
    {
        return call.createReply(QVariant::fromValue(QDBusVariant(value)));
    }

    static QDBusMessage noSuch(const QDBusMessage& call, const char* error)
    {
        return call.createErrorReply(
            QStringLiteral("org.freedesktop.login1.") + QString::fromLatin1(error), QStringLiteral("There is none"));
    }

    QHash<QString, QVariant> m_values;
    QHash<QString, QString> m_errors;
    QString m_postponed;
    QList<QDBusMessage> m_waiting;
};

} // namespace Tarvik
