// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "lidclosed/HelperManager.h"

#include <QCoreApplication>
#include <QPointer>

#include <utility>

namespace Tarvik {

HelperManager::HelperManager(HelperService& service, Clock& clock)
    : m_service(service)
    , m_clock(clock)
    , m_statusChanges(service.statusChanged.subscribe([this] { Q_EMIT statusChanged(); }))
{
}

HelperManager::~HelperManager() = default;

HelperConnection* HelperManager::proxy()
{
    if (m_connection)
        return m_connection.get();
    m_connection = m_service.connect();
    if (!m_connection)
        return nullptr;
    m_connection->onInvalidated = [this, connection = m_connection.get()] { dropConnection(connection); };
    m_connection->onInterrupted = [this, connection = m_connection.get()] {
        if (connection == m_connection.get())
            Q_EMIT lost();
    };
    return m_connection.get();
}

void HelperManager::dropConnection(const HelperConnection* dropped)
{
    if (dropped != m_connection.get())
        return;
    // It is the one that is speaking, and must live until it has finished.
    QMetaObject::invokeMethod(
        this, [connection = std::exchange(m_connection, nullptr)] {}, Qt::QueuedConnection);
    Q_EMIT lost();
}

void HelperManager::setKeepAwake(bool enabled, Completion done)
{
    call(keepAwakePatience, std::move(done), [enabled](HelperConnection& connection, const Completion& answer) {
        connection.setKeepAwake(enabled, answer, [answer](const QString& error) { answer(false, error); });
    });
}

void HelperManager::version(Completion done)
{
    call(versionPatience, std::move(done), [](HelperConnection& connection, const Completion& answer) {
        connection.version(
            [answer](const QString&) { answer(true, {}); }, [answer](const QString& error) { answer(false, error); });
    });
}

void HelperManager::call(Seconds patience, Completion done, const Request& request)
{
    const quint64 number = ++m_lastCall;
    const auto finishLater = [this, number](Seconds delay, const QString& error) {
        return m_clock.after(delay, [this, number, error] { finish(number, false, error); });
    };
    Call& pending = m_calls[number];
    pending.done = std::move(done);
    if (proxy() == nullptr) {
        pending.timeout
            = finishLater(Seconds::zero(), QCoreApplication::translate("HelperManager", "No helper connection"));
        return;
    }
    pending.timeout = finishLater(
        patience, QCoreApplication::translate("HelperManager", "The background helper isn’t responding."));
    pending.connection = m_connection;
    request(*m_connection, [this, number](bool ok, const QString& error) { finish(number, ok, error); });
}

void HelperManager::finish(quint64 number, bool ok, const QString& error)
{
    // The first to come takes the call with it; whoever comes later finds none.
    const auto first = m_calls.extract(number);
    if (!first.empty())
        first.mapped().done(ok, error);
}

void HelperManager::registerService(ErrorReceiver done)
{
    m_service.registerService([self = QPointer(this), done = std::move(done)](const QString& error) {
        if (self)
            done(error);
    });
}

void HelperManager::reinstall(ErrorReceiver done)
{
    m_service.unregisterService([self = QPointer(this), done = std::move(done)](const QString&) {
        if (!self)
            return;
        self->m_reinstallPause = self->m_clock.after(reinstallPause, [self, done] { self->registerService(done); });
    });
}

} // namespace Tarvik
