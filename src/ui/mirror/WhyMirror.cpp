// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/WhyMirror.h"

#include "core/Logging.h"
#include "dbus/DBusErrors.h"
#include "dbus/contracts/TarvikWire.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

WhyMirror::WhyMirror(QDBusConnection bus)
    : m_bus(std::move(bus))
{
}

void WhyMirror::ask()
{
    auto message = QDBusMessage::createMethodCall(QString::fromLatin1(TarvikWire::busName),
        QString::fromLatin1(TarvikWire::objectPath),
        QString::fromLatin1(TarvikWire::whyInterface),
        QString::fromLatin1(TarvikWire::explainMethod));
    message << false;
    m_call = callAsync(m_bus, message, [this](const QDBusMessage& answer) {
        m_call.reset();
        if (answer.type() == QDBusMessage::ReplyMessage)
            setAnswer(answer.arguments().value(0).toString().section(u"\n\n"_s, 0, 0));
        else if (!DBusErrors::isPeerGone(answer.errorName()))
            qCWarning(logSystem, "Explain failed: %ls", qUtf16Printable(answer.errorMessage()));
    });
}

void WhyMirror::forget()
{
    m_call.reset();
    setAnswer({});
}

void WhyMirror::setAnswer(const QString& answer)
{
    if (std::exchange(m_answer, answer) != answer)
        Q_EMIT answerChanged();
}

} // namespace Tarvik
