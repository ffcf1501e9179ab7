// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/session/LogindSession.h"

#include "dbus/BusNames.h"
#include "dbus/DBusProperties.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <unistd.h>

#include <optional>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto noSessionForPid = u"org.freedesktop.login1.NoSessionForPID"_s;

QDBusMessage managerCall(const QString& method, quint32 argument)
{
    auto call = QDBusMessage::createMethodCall(
        BusNames::logind, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s, method);
    call << argument;
    return call;
}

/// Empty for an error or anything else.
QString pathIn(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "o"_L1)
        return {};
    return answer.arguments().constFirst().value<QDBusObjectPath>().path();
}

struct UserDisplay {
    /// Empty when the user has no session that a display could belong to.
    QString sessionId;
    QString sessionPath;
};

/// Nothing for an error or anything else.
std::optional<UserDisplay> displayIn(const QDBusMessage& answer)
{
    const auto value = DBusProperties::exactly<QDBusArgument>(DBusProperties::propertyIn(answer));
    if (!value || value->currentSignature() != "(so)"_L1)
        return {};
    UserDisplay display;
    QDBusObjectPath path;
    value->beginStructure();
    *value >> display.sessionId >> path;
    value->endStructure();
    display.sessionPath = path.path();
    return display;
}

} // namespace

LogindSession::LogindSession(QDBusConnection systemBus)
    : m_systemBus(std::move(systemBus))
{
}

void LogindSession::askWhetherOver(std::function<void(bool isOver)> done)
{
    m_done = std::move(done);
    ask(managerCall(u"GetSessionByPID"_s, static_cast<quint32>(getpid())), [this](const QDBusMessage& answer) {
        const QString session = pathIn(answer);
        if (!session.isEmpty())
            askForState(session);
        else if (answer.errorName() == noSessionForPid)
            askForUser();
        else
            finish(false);
    });
}

void LogindSession::askForUser()
{
    ask(managerCall(u"GetUser"_s, getuid()), [this](const QDBusMessage& answer) {
        const QString user = pathIn(answer);
        if (user.isEmpty())
            finish(false);
        else
            askForDisplay(user);
    });
}

void LogindSession::askForDisplay(const QString& userPath)
{
    const auto question
        = DBusProperties::get(BusNames::logind, userPath, u"org.freedesktop.login1.User"_s, u"Display"_s);
    ask(question, [this](const QDBusMessage& answer) {
        const auto display = displayIn(answer);
        if (display && !display->sessionId.isEmpty())
            askForState(display->sessionPath);
        else
            finish(display.has_value());
    });
}

void LogindSession::askForState(const QString& sessionPath)
{
    const auto question
        = DBusProperties::get(BusNames::logind, sessionPath, u"org.freedesktop.login1.Session"_s, u"State"_s);
    ask(question, [this](const QDBusMessage& answer) {
        finish(DBusProperties::exactly<QString>(DBusProperties::propertyIn(answer)) == u"closing"_s);
    });
}

void LogindSession::ask(const QDBusMessage& question, std::function<void(const QDBusMessage& answer)> take)
{
    m_question = callAsync(m_systemBus, question, std::move(take));
}

void LogindSession::finish(bool isOver)
{
    m_question.reset();
    const auto done = std::exchange(m_done, {});
    done(isOver);
}

} // namespace Tarvik
