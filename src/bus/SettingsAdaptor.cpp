// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/SettingsAdaptor.h"

#include "bus/UiWire.h"
#include "core/Logging.h"

namespace Tarvik {

SettingsAdaptor::SettingsAdaptor(QObject& object, AppSettings& settings, const QDBusConnection& bus)
    : QDBusAbstractAdaptor(&object)
    , m_settings(settings)
    , m_announcer({.object = *this,
                      .metaObject = staticMetaObject,
                      .interface = QString::fromLatin1(UiWire::settingsInterface)},
          bus)
{
    connect(&settings, &AppSettings::changed, &m_announcer, &PropertyAnnouncer::announceSoon);
}

void SettingsAdaptor::setLaunchAtLogin(bool on)
{
    if (onSetLaunchAtLogin)
        onSetLaunchAtLogin(on);
    else
        m_settings.setLaunchAtLogin(on);
}

void SettingsAdaptor::setClamshellEnabled(bool on)
{
    if (onSetClamshellEnabled)
        onSetClamshellEnabled(on);
    else
        m_settings.setClamshellEnabled(on);
}

void SettingsAdaptor::setBatteryThreshold(int percent)
{
    // QtDBus leaves a setter no way to answer with an error.
    if (percent < 0 || percent > 100) {
        qCWarning(logSettings, "Refused a battery threshold of %d percent", percent);
        return;
    }
    m_settings.setBatteryThreshold(percent);
}

} // namespace Tarvik
