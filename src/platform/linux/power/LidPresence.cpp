// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/LidPresence.h"

#include "dbus/DBusProperties.h"
#include "platform/linux/kernel/SysfsFile.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

const auto upowerService = u"org.freedesktop.UPower"_s;
const auto upowerPath = u"/org/freedesktop/UPower"_s;
const auto upowerInterface = u"org.freedesktop.UPower"_s;
const auto upowerProperty = u"LidIsPresent"_s;

/// SW_LID of linux/input-event-codes.h.
constexpr qulonglong lidSwitch = 1U << 0U;

/// Of an input device: its switches as hexadecimal words, the one with the lowest bits last.
bool hasLidSwitch(const QString& device)
{
    const QByteArray switches = SysfsFile::text(device + u"/capabilities/sw"_s).value_or(QByteArray());
    return (switches.split(' ').constLast().toULongLong(nullptr, 16) & lidSwitch) != 0;
}

} // namespace

LidPresence::LidPresence(QDBusConnection systemBus, QString procfs, QString sysfs)
    : m_systemBus(std::move(systemBus))
    , m_procfs(std::move(procfs))
    , m_sysfs(std::move(sysfs))
{
    ask();
}

void LidPresence::ask()
{
    const auto done = [this](const QDBusMessage& answer) {
        const QVariantMap properties = DBusProperties::propertiesIn(answer).value_or(QVariantMap());
        if (properties.contains(upowerProperty))
            take(properties);
        else
            set(hasKernelLid());
    };
    m_question = callAsync(
        m_systemBus, DBusProperties::getAll(upowerService, upowerPath, upowerInterface), done, {.startsService = true});
}

void LidPresence::take(const QVariantMap& upowerProperties)
{
    if (!upowerProperties.contains(upowerProperty))
        return;
    set(DBusProperties::exactly<bool>(upowerProperties.value(upowerProperty)) == true || hasKernelLid());
}

void LidPresence::set(bool isPresent)
{
    if (std::exchange(m_isPresent, isPresent) != isPresent && onChange)
        onChange();
}

bool LidPresence::hasKernelLid() const
{
    if (!QDir(m_procfs + u"/acpi/button/lid"_s).isEmpty())
        return true;
    const QDir devices(m_sysfs + u"/class/input"_s);
    const QStringList names = devices.entryList({u"input*"_s}, QDir::Dirs | QDir::NoDotAndDotDot);
    return std::ranges::any_of(names, [&](const QString& name) { return hasLidSwitch(devices.filePath(name)); });
}

} // namespace Tarvik
