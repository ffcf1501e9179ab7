// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/mirror/JournalModel.h"
#include "ui/mirror/PropertyMirror.h"

namespace Tarvik {

/// The journal of the running Tarvik.
class JournalMirror : public Tarvik::PropertyMirror {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one in the UI process.")
    Q_PROPERTY(Tarvik::JournalModel* entries READ entries NOTIFY entriesChanged)

public:
    explicit JournalMirror(const QDBusConnection& bus);

    /// Always the same one.
    JournalModel* entries() { return &m_model; }

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
