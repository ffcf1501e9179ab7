// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/HooksMirror.h"

#include "core/HookSpec.h"
#include "core/Logging.h"
#include "dbus/WireValue.h"
#include "dbus/contracts/ModelTypes.h"
#include "dbus/contracts/TarvikWire.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

QString toQString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

HooksMirror::HooksMirror(const QDBusConnection& bus)
    : PropertyMirror(bus,
        staticMetaObject,
        TarvikWire::hooksInterface,
        {{u"lastEvents"_s, QVariant::fromValue(QMap<QString, double>())}})
{
    registerModelTypes();
}

QVariantList HooksMirror::agents() const
{
    QVariantList rows;
    for (const HookSpec& spec : HookSpec::all) {
        rows.append(QVariantMap{{u"id"_s, toQString(spec.id)},
            {u"label"_s, toQString(spec.label)},
            {u"configPath"_s, toQString(spec.configPath)},
            {u"docs"_s, toQString(spec.docs)}});
    }
    return rows;
}

QVariantMap HooksMirror::lastEvents() const
{
    QVariantMap dates;
    const auto seconds = value("lastEvents").value<QMap<QString, double>>();
    for (auto each = seconds.constBegin(); each != seconds.constEnd(); ++each) {
        if (const auto date = WireValue::toDateTime(*each))
            dates.insert(each.key(), *date);
    }
    return dates;
}

void HooksMirror::install(const QString& id)
{
    edit(u"Install"_s, id);
}

void HooksMirror::uninstall(const QString& id)
{
    edit(u"Uninstall"_s, id);
}

void HooksMirror::edit(const QString& method, const QString& id)
{
    call(method, {id}, [this, method, id](const QDBusMessage& answer) {
        if (answer.type() == QDBusMessage::ErrorMessage)
            qCWarning(logSystem, "%ls failed: %ls", qUtf16Printable(method), qUtf16Printable(answer.errorMessage()));
        Q_EMIT changed(id, answer.signature() == "b"_L1 && answer.arguments().constFirst().toBool());
    });
}

} // namespace Tarvik
