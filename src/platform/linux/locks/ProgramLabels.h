// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tarvik {

/// Names programs for people.
class ProgramLabels final {
public:
    /// The name of the installed application that is known by one of these: ids, window classes, names of executables,
    /// the best first. Nothing where none is.
    using Applications = std::function<std::optional<QString>(const QStringList& names)>;

    explicit ProgramLabels(Applications applications);

    /// Of the program that calls itself `who` and runs as `process`: that of its application, else what it calls
    /// itself, else that of the process. Never empty.
    QString label(const QString& who, std::optional<qint64> process) const;

private:
    Applications m_applications;
    QString m_user;
};

} // namespace Tarvik
