// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <QDBusConnection>
#include <QObject>
#include <QtQmlIntegration>

namespace Tarvik {

/// Why this computer is awake, in the sentences of the running Tarvik, see com.morvanta.Tarvik.Why1.xml. It is asked
/// for and forgotten again. A question that fails is logged.
class WhyMirror : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    Q_PROPERTY(QString answer READ answer NOTIFY answerChanged)

public:
    explicit WhyMirror(QDBusConnection bus);

    /// One sentence a line; empty when it was not asked for, or is not known yet.
    QString answer() const { return m_answer; }

    Q_INVOKABLE void ask();
    Q_INVOKABLE void forget();

Q_SIGNALS:
    void answerChanged();

private:
    void setAnswer(const QString& answer);

    QDBusConnection m_bus;
    DBusCall m_call;
    QString m_answer;
};

} // namespace Tarvik
