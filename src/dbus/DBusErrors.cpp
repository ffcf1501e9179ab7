// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "dbus/DBusErrors.h"

#include <QStringView>

#include <array>
#include <cerrno>
#include <utility>

namespace Tarvik::DBusErrors {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<std::pair<QStringView, int>, 21> errnoByName{{
    {u"org.freedesktop.DBus.Error.AccessDenied", EACCES},
    {u"org.freedesktop.DBus.Error.AuthFailed", EACCES},
    {u"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", EACCES},
    {u"org.freedesktop.DBus.Error.LimitsExceeded", ENOBUFS},
    {u"org.freedesktop.DBus.Error.NoMemory", ENOMEM},
    {u"org.freedesktop.DBus.Error.ServiceUnknown", EHOSTUNREACH},
    {u"org.freedesktop.DBus.Error.NameHasNoOwner", ENXIO},
    {u"org.freedesktop.DBus.Error.NoReply", ETIMEDOUT},
    {u"org.freedesktop.DBus.Error.Timeout", ETIMEDOUT},
    {u"org.freedesktop.DBus.Error.TimedOut", ETIMEDOUT},
    {u"org.freedesktop.DBus.Error.Disconnected", ECONNRESET},
    {u"org.freedesktop.DBus.Error.NoServer", EHOSTDOWN},
    {u"org.freedesktop.DBus.Error.NoNetwork", ENONET},
    {u"org.freedesktop.DBus.Error.NotSupported", EOPNOTSUPP},
    {u"org.freedesktop.DBus.Error.UnknownMethod", EBADR},
    {u"org.freedesktop.DBus.Error.UnknownObject", EBADR},
    {u"org.freedesktop.DBus.Error.UnknownInterface", EBADR},
    {u"org.freedesktop.DBus.Error.InvalidArgs", EINVAL},
    {u"org.freedesktop.DBus.Error.InvalidSignature", EINVAL},
    {u"org.freedesktop.DBus.Error.InconsistentMessage", EBADMSG},
    {u"org.freedesktop.login1.OperationInProgress", EINPROGRESS},
}};

} // namespace

int toErrno(const QString& errorName)
{
    for (const auto& [name, code] : errnoByName) {
        if (name == errorName)
            return code;
    }
    return EIO;
}

bool isPeerGone(const QString& errorName)
{
    // The first is what the bus says of a call that may not start a service.
    return errorName == "org.freedesktop.DBus.Error.NameHasNoOwner"_L1
        || errorName == "org.freedesktop.DBus.Error.ServiceUnknown"_L1
        || errorName == "org.freedesktop.DBus.Error.NoReply"_L1
        || errorName == "org.freedesktop.DBus.Error.UnknownObject"_L1;
}

} // namespace Tarvik::DBusErrors
