// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantList>

#include <functional>

namespace Tarvik {

/// The background helper on a bus, which answers as a test says.
class FakeHelper : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.morvanta.Tarvik.HelperProtocol1")

public:
    using Answer = std::function<QDBusMessage(const QDBusMessage& call)>;

    FakeHelper(QDBusConnection bus, QString label)
        : m_bus(std::move(bus))
        , m_label(std::move(label))
    {
        m_bus.registerObject(QStringLiteral("/com/morvanta/Tarvik/Helper"), this, QDBusConnection::ExportAllSlots);
    }
    ~FakeHelper() override
    {
        leave();
        m_bus.unregisterObject(QStringLiteral("/com/morvanta/Tarvik/Helper"));
    }

    bool appear() { return m_bus.registerService(m_label); }
    void leave() { m_bus.unregisterService(m_label); }

    static Answer value(const QVariantList& values)
    {
        return [values](const QDBusMessage& call) { return call.createReply(values); };
    }

    static Answer error(const QString& name)
    {
        return
            [name](const QDBusMessage& call) { return call.createErrorReply(name, QStringLiteral("It is not to be")); };
    }

    /// Answers the oldest call that waits for it.
    void answerLate(const Answer& late) { m_bus.send(late(unanswered.takeFirst())); }

    /// Empty: calls wait for `answerLate`. One answer is for one call, the last for all that follow.
    QList<Answer> answers;
    /// Of all calls, the method and its arguments.
    QStringList calls;
    QList<QDBusMessage> unanswered;

public Q_SLOTS:
    void setKeepAwake(bool enabled, const QDBusMessage&)
    {
        take(enabled ? QStringLiteral("on") : QStringLiteral("off"));
    }
    void version(const QDBusMessage&) { take(QStringLiteral("version")); }
    void heartbeat(const QDBusMessage&) { take(QStringLiteral("heartbeat")); }

private:
    void take(const QString& name)
    {
        calls.append(name);
        setDelayedReply(true);
        if (answers.isEmpty())
            unanswered.append(message());
        else
            m_bus.send((answers.size() > 1 ? answers.takeFirst() : answers.constFirst())(message()));
    }

    QDBusConnection m_bus;
    QString m_label;
};

} // namespace Tarvik
