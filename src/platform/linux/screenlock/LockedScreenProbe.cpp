// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/screenlock/LockedScreenProbe.h"

#include "dbus/BusNames.h"

#include <QDBusVariant>

#include <array>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

struct ScreenSaver {
    /// Also its interface.
    QString service;
    QString path;
};

const std::array screenSavers{
    ScreenSaver{BusNames::gnomeScreenSaver, u"/org/gnome/ScreenSaver"_s},
    ScreenSaver{BusNames::screenSaver, u"/org/freedesktop/ScreenSaver"_s},
    ScreenSaver{u"org.xfce.ScreenSaver"_s, u"/org/xfce/ScreenSaver"_s},
    ScreenSaver{BusNames::mateScreenSaver, u"/"_s},
    ScreenSaver{BusNames::cinnamonScreenSaver, u"/org/cinnamon/ScreenSaver"_s},
};

bool saysYes(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage)
        return false;
    const QVariant value = answer.arguments().value(0);
    if (answer.signature() == "v"_L1)
        return value.value<QDBusVariant>().variant() == QVariant(true);
    return answer.signature() == "b"_L1 && value.toBool();
}

} // namespace

LockedScreenProbe::LockedScreenProbe(const QDBusConnection& systemBus, const QDBusConnection& sessionBus)
{
    auto hint = QDBusMessage::createMethodCall(
        BusNames::logind, u"/org/freedesktop/login1/session/auto"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    hint.setArguments({u"org.freedesktop.login1.Session"_s, u"LockedHint"_s});
    m_witnesses.push_back({systemBus, hint, {}});
    for (const auto& [service, path] : screenSavers) {
        m_witnesses.push_back({sessionBus, QDBusMessage::createMethodCall(service, path, service, u"GetActive"_s), {}});
    }
}

void LockedScreenProbe::ask(const std::function<void()>& onLocked)
{
    for (Witness& witness : m_witnesses) {
        if (witness.call)
            continue;
        witness.call = callAsync(witness.bus, witness.question, [&witness, onLocked](const QDBusMessage& answer) {
            witness.call.reset();
            if (saysYes(answer))
                onLocked();
        });
    }
}

void LockedScreenProbe::cancel()
{
    for (Witness& witness : m_witnesses)
        witness.call.reset();
}

} // namespace Tarvik
