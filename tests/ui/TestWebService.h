// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeWebService.h"
#include "support/TestSupport.h"
#include "ui/request/AgentRequest.h"

#include <QStringList>

namespace Tarvik {

/// The web service as a QML test sets it, and what the windows send it with. Until it is told how, it does not answer.
class TestWebService : public QObject {
    Q_OBJECT
    Q_PROPERTY(Tarvik::AgentRequest* request READ request CONSTANT)
    /// Of a copy of Tarvik that knows of no web service.
    Q_PROPERTY(Tarvik::AgentRequest* requestToNobody READ requestToNobody CONSTANT)
    /// Whether somebody waits for an answer.
    Q_PROPERTY(bool isWaitedFor READ isWaitedFor)

public:
    AgentRequest* request() { return &m_request; }
    AgentRequest* requestToNobody() { return &m_requestToNobody; }
    bool isWaitedFor() const { return m_service.isConnected(); }

    /// Forgets everything.
    Q_INVOKABLE void restart()
    {
        m_request.cancel();
        m_service.hangUp();
        m_service.requests.clear();
        m_service.answer(FakeWebService::Manner::unfinished, {});
    }

    /// Whoever asks from now on.
    Q_INVOKABLE void answer(int status, const QString& body) { m_service.answer(status, body.toUtf8()); }
    /// Without a word.
    Q_INVOKABLE void hangUp() { m_service.hangUp(); }

    /// The bodies of all requests.
    Q_INVOKABLE QStringList requests() const
    {
        QStringList bodies;
        for (const FakeWebService::Request& request : m_service.requests)
            bodies.append(QString::fromUtf8(request.body));
        return bodies;
    }

    /// A line of the log, once.
    Q_INVOKABLE void expect(const QString& pattern) { expectLog(QtCriticalMsg, pattern); }

private:
    FakeWebService m_service;
    AgentRequest m_request{m_service.address()};
    AgentRequest m_requestToNobody{QUrl()};
};

} // namespace Tarvik
