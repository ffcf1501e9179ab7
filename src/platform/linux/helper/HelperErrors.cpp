// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/helper/HelperErrors.h"

#include <QCoreApplication>
#include <QStringView>

#include <array>

namespace Tarvik::HelperErrors {

using namespace Qt::StringLiterals;

namespace {

struct Description {
    /// An error's name, or how the names of several begin.
    QStringView name;
    const char* text;
};

// The names that begin alike stand below those that are told apart.
constexpr std::array descriptions{
    Description{u"org.freedesktop.DBus.Error.AccessDenied",
        QT_TRANSLATE_NOOP("HelperErrors", "This session is not allowed to switch sleep off.")},
    Description{u"org.freedesktop.DBus.Error.AuthFailed",
        QT_TRANSLATE_NOOP("HelperErrors", "This session is not allowed to switch sleep off.")},
    Description{u"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired",
        QT_TRANSLATE_NOOP("HelperErrors", "This session is not allowed to switch sleep off.")},
    Description{u"org.freedesktop.DBus.Error.ServiceUnknown",
        QT_TRANSLATE_NOOP("HelperErrors", "The background helper is not installed.")},
    Description{u"org.freedesktop.DBus.Error.NameHasNoOwner",
        QT_TRANSLATE_NOOP("HelperErrors", "The background helper is not installed.")},
    Description{u"org.freedesktop.DBus.Error.Disconnected",
        QT_TRANSLATE_NOOP("HelperErrors", "There is no connection to the system bus.")},
    Description{u"org.freedesktop.DBus.Error.NoReply",
        QT_TRANSLATE_NOOP("HelperErrors", "The background helper isn’t responding.")},
    Description{u"org.freedesktop.DBus.Error.Time",
        QT_TRANSLATE_NOOP("HelperErrors", "The background helper isn’t responding.")},
    Description{u"org.freedesktop.DBus.Error.Unknown",
        QT_TRANSLATE_NOOP("HelperErrors", "The background helper belongs to another version of Tarvik.")},
    Description{u"org.freedesktop.DBus.Error.InvalidArgs",
        QT_TRANSLATE_NOOP("HelperErrors", "The background helper belongs to another version of Tarvik.")},
    Description{u"org.freedesktop.systemd1.UnitMasked",
        QT_TRANSLATE_NOOP("HelperErrors", "The administrator of this computer has blocked the background helper.")},
};

} // namespace

QString describe(const QDBusMessage& error)
{
    for (const auto& [name, text] : descriptions) {
        if (error.errorName().startsWith(name))
            return QCoreApplication::translate("HelperErrors", text);
    }
    // Mostly of whoever tried to start it.
    return QCoreApplication::translate("HelperErrors", "The background helper does not work: %1")
        .arg(error.errorMessage());
}

QString otherVersion()
{
    return QCoreApplication::translate("HelperErrors", "The background helper belongs to another version of Tarvik.");
}

QString hasEnded()
{
    return QCoreApplication::translate("HelperErrors", "The background helper has ended unexpectedly.");
}

} // namespace Tarvik::HelperErrors
