// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/JournalModel.h"
#include "ui/mirror/PropertyMirror.h"

namespace Tarvik {

/// The journal of the running Tarvik.
class JournalMirror : public PropertyMirror {
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* entries READ entries NOTIFY entriesChanged)

public:
    explicit JournalMirror(const QDBusConnection& bus);

    /// A JournalModel, always the same one.
    QAbstractItemModel* entries() { return &m_model; }

    Q_INVOKABLE void clear();
    /// Asks for the whole journal as text, which comes with `exported`; not when Tarvik does not answer.
    Q_INVOKABLE void exportText();

Q_SIGNALS:
    /// The model shows something else.
    void entriesChanged();
    void exported(const QString& text);

private:
    JournalModel m_model;
};

} // namespace Tarvik
