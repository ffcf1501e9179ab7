// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/placement/PlasmaStruts.h"

#include <QDBusArgument>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tarvik {

namespace {

/// Who is asked has just passed on the click.
constexpr auto patience = 1s;

QMargins around(const QRect& free, const QRect& screen)
{
    if (free.isEmpty() || !screen.contains(free))
        return {};
    return {free.left() - screen.left(),
        free.top() - screen.top(),
        screen.right() - free.right(),
        screen.bottom() - free.bottom()};
}

} // namespace

PlasmaStruts::PlasmaStruts(const QDBusConnection& bus, const QByteArray& sessionVersion)
    : m_bus(bus)
    , m_isPlasma5(sessionVersion == "5")
{
}

void PlasmaStruts::ask(const QString& screen, const QRect& geometry, const std::function<void(QMargins)>& answer)
{
    if (!m_isPlasma5) {
        answer({});
        return;
    }
    auto message = QDBusMessage::createMethodCall(
        u"org.kde.plasmashell"_s, u"/StrutManager"_s, u"org.kde.PlasmaShell.StrutManager"_s, u"availableScreenRect"_s);
    message << screen;
    m_calls.send(m_bus,
        message,
        [geometry, answer](const QDBusMessage& reply) {
            const bool isRectangle = reply.type() == QDBusMessage::ReplyMessage && reply.signature() == "(iiii)"_L1;
            answer(isRectangle ? around(qdbus_cast<QRect>(reply.arguments().constFirst()), geometry) : QMargins());
        },
        {.patience = patience});
}

} // namespace Tarvik
