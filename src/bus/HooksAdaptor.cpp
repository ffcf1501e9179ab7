// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/HooksAdaptor.h"

#include "hooks/HookConfig.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

namespace {

const HookSpec* findSpec(const QString& id)
{
    return HookSpec::find(id.toStdString());
}

} // namespace

HooksAdaptor::HooksAdaptor(QObject& object, Paths paths, const QDBusConnection& bus)
    : QDBusAbstractAdaptor(&object)
    , m_paths(std::move(paths))
    , m_bus(bus)
{
}

QStringList HooksAdaptor::InstalledIds() const
{
    const QSet<QString> installed = HookConfig::installedIds(m_paths.home);
    QStringList ids;
    for (const HookSpec& spec : HookSpec::all) {
        const QString id = QString::fromUtf8(spec.id.data(), static_cast<qsizetype>(spec.id.size()));
        if (installed.contains(id))
            ids.append(id);
    }
    return ids;
}

bool HooksAdaptor::Install(const QString& id, const QDBusMessage& call)
{
    if (const HookSpec* spec = findSpec(id))
        return HookConfig::install(*spec, m_paths.home, m_paths.tool);
    refuse(id, call);
    return false;
}

bool HooksAdaptor::Uninstall(const QString& id, const QDBusMessage& call)
{
    if (const HookSpec* spec = findSpec(id))
        return HookConfig::uninstall(*spec, m_paths.home);
    refuse(id, call);
    return false;
}

void HooksAdaptor::refuse(const QString& id, const QDBusMessage& call) const
{
    call.setDelayedReply(true);
    m_bus.send(call.createErrorReply(QDBusError::InvalidArgs, u"There are no hooks for an agent \"%1\"."_s.arg(id)));
}

} // namespace Tarvik
