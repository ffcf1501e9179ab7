// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/inhibitors/LogindInhibitors.h"

#include "dbus/BusNames.h"

#include <QDBusArgument>

namespace Tarvik::LogindInhibitors {

using namespace Qt::StringLiterals;

namespace {

const auto path = u"/org/freedesktop/login1"_s;
const auto interface = u"org.freedesktop.login1.Manager"_s;
const auto block = u"block"_s;

} // namespace

InhibitorRequest request(const QString& what, const QString& who, const QString& why)
{
    return {.service = BusNames::logind,
        .path = path,
        .interface = interface,
        .arguments = {what, who, why, block},
        .releaseMethod = {}};
}

QDBusMessage list()
{
    return QDBusMessage::createMethodCall(BusNames::logind, path, interface, u"ListInhibitors"_s);
}

std::optional<QList<LogindInhibitor>> listIn(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != "a(ssssuu)"_L1)
        return {};
    QList<LogindInhibitor> inhibitors;
    const auto array = answer.arguments().constFirst().value<QDBusArgument>();
    array.beginArray();
    while (!array.atEnd()) {
        QString what;
        QString mode;
        LogindInhibitor inhibitor;
        array.beginStructure();
        array >> what >> inhibitor.who >> inhibitor.why >> mode >> inhibitor.user >> inhibitor.process;
        array.endStructure();
        inhibitor.what = what.split(u':');
        inhibitor.blocks = mode == block;
        inhibitor.blocksWeakly = mode == "block-weak"_L1;
        inhibitors.append(inhibitor);
    }
    array.endArray();
    return inhibitors;
}

} // namespace Tarvik::LogindInhibitors
