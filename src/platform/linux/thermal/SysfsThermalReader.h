// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/thermal/ThermalClassifier.h"

#include <QString>

#include <vector>

namespace Tarvik {

/// Reads the kernel's thermal zones and the processors' throttle counters from sysfs. What cannot be read or makes no
/// sense is left out.
class SysfsThermalReader {
public:
    /// Looks for zones and packages below `root`, which is "/sys" on a real machine.
    explicit SysfsThermalReader(QString root);

    /// Looks anew for what there is: zones come and go, and trips move.
    void rescan();

    /// There is something whose reading can tell a thermal level.
    bool canTell() const { return !m_zones.empty() || !m_packages.empty(); }

    ThermalReadings read();

private:
    struct Zone {
        /// Everything that does not change from one look to the next.
        ThermalZoneReading fixed;
        QString path;
        /// The cooling devices that belong to the passive trip.
        std::vector<QString> coolingStates;
    };
    struct Package {
        QString name;
        QString counter;
    };

    void scanZones();
    void scanPackages();
    static Zone scanZone(const QString& path, const QString& name);

    QString m_root;
    std::vector<Zone> m_zones;
    std::vector<Package> m_packages;
    bool m_isStale = false;
};

} // namespace Tarvik
