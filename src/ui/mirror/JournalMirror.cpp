// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/JournalMirror.h"

#include "core/Logging.h"
#include "dbus/contracts/TarvikWire.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

JournalMirror::JournalMirror(const QDBusConnection& bus)
    : PropertyMirror(
        bus, staticMetaObject, TarvikWire::journalInterface, {{u"entries"_s, QVariant::fromValue(QList<JournalRow>())}})
{
    registerModelTypes();
    // Connected first, so that whoever hears of a change finds it in the model.
    connect(this, &JournalMirror::entriesChanged, this, [this] {
        m_model.show(value("entries").value<QList<JournalRow>>());
    });
}

void JournalMirror::clear()
{
    call(u"Clear"_s);
}

void JournalMirror::exportText()
{
    call(u"ExportText"_s, {}, [this](const QDBusMessage& answer) {
        if (answer.signature() == "s"_L1)
            Q_EMIT exported(answer.arguments().constFirst().toString());
        else
            qCWarning(logSystem, "The journal could not be read: %ls", qUtf16Printable(answer.errorMessage()));
    });
}

} // namespace Tarvik
