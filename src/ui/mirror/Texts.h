// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QObject>
#include <QVariant>
#include <QtQmlIntegration>

namespace Tarvik {

/// What the windows say of values, in the language of the user.
class Texts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QVariantList sessionLengths READ sessionLengths CONSTANT)
    Q_PROPERTY(QString cancelSession READ cancelSession CONSTANT)

public:
    /// Objects with "minutes" and "text", see SessionChoices.
    static QVariantList sessionLengths();
    static QString cancelSession();
    Q_INVOKABLE static QString sessionTitle(bool isRunning);

    /// `date` is invalid when there was no check yet. In the largest unit of which at least one has passed.
    Q_INVOKABLE static QString lastCheck(const QVariant& date, const QDateTime& now);
    /// Milliseconds until `lastCheck` says something else of the same date; 0 when it never does.
    Q_INVOKABLE static int untilNextAge(const QVariant& date, const QDateTime& now);

    /// Whether the hook of an agent works: when it last told of itself or, with an invalid `date`, what the agent needs
    /// until it runs it.
    Q_INVOKABLE static QString hookState(const QString& id, const QVariant& date, const QDateTime& now);

    /// A day in ISO 8601, as a heading.
    Q_INVOKABLE static QString day(const QString& isoDate, const QDateTime& now);
    /// Milliseconds until `day` says something else. At most a minute, since nobody tells of a clock that is set or of
    /// a computer that has slept.
    Q_INVOKABLE static int untilNextDay(const QDateTime& now);
    /// When on its day something happened.
    Q_INVOKABLE static QString time(const QDateTime& at);

    /// Those of the applications, objects with "bundleID" and "name", that have `wanted` in their names, in whatever
    /// case.
    Q_INVOKABLE static QVariantList matching(const QVariantList& applications, const QString& wanted);
};

} // namespace Tarvik
