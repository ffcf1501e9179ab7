// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/updates/PackageKitUpdateDriver.h"

#include "core/Logging.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// Bits of PkFilterEnum and PkTransactionFlagEnum.
constexpr quint64 noFilter = 1 << 1;
constexpr quint64 onlyInstalled = 1 << 2;
constexpr quint64 onlyTrusted = 1 << 1;

/// Whether the file hierarchy, see hier(7), leaves the place to packages. A program that was built from source, or lies
/// in somebody's home, is no reason to start anything.
bool isPlaceOfPackages(const QString& path)
{
    return (path.startsWith("/usr/"_L1) && !path.startsWith("/usr/local/"_L1)) || path.startsWith("/opt/"_L1);
}

/// Whether the program lies where CMake has built it.
bool isInBuildTree(const QString& program)
{
    QDir directory(QFileInfo(program).absolutePath());
    while (!directory.exists(u"CMakeCache.txt"_s)) {
        if (!directory.cdUp())
            return false;
    }
    return true;
}

UpdateDriver::Channel channelWithoutPackages(const QString& program)
{
    return isInBuildTree(program) ? UpdateDriver::Channel::source : UpdateDriver::Channel::manual;
}

QString packageName(const QString& packageId)
{
    return packageId.section(u';', 0, 0);
}

} // namespace

PackageKitUpdateDriver::PackageKitUpdateDriver(QDBusConnection systemBus, QString program, Clock& clock)
    : m_bus(std::move(systemBus))
    , m_program(std::move(program))
    , m_clock(clock)
    , m_channel(isPlaceOfPackages(m_program) ? Channel::unknown : channelWithoutPackages(m_program))
{
}

void PackageKitUpdateDriver::prepare()
{
    if (m_isPrepared || !isPlaceOfPackages(m_program))
        return;
    m_isPrepared = true;
    m_initiator = Initiator::timer;
    run(u"SearchFiles"_s,
        {QVariant::fromValue(onlyInstalled), QStringList{m_program}},
        [this](const PackageKitTransaction::Outcome& outcome) { readPackage(outcome); });
}

void PackageKitUpdateDriver::readPackage(const PackageKitTransaction::Outcome& outcome)
{
    m_transaction.reset();
    if (outcome.error) {
        qCInfo(logSystem, "There are no updates, for lack of PackageKit: %ls", qUtf16Printable(*outcome.error));
        // It may be installed later, or was only busy.
        m_isPrepared = false;
        setChannel(Channel::system);
        return;
    }
    if (outcome.packageIds.isEmpty()) {
        setChannel(channelWithoutPackages(m_program));
        return;
    }
    m_package = packageName(outcome.packageIds.constFirst());
    setChannel(Channel::available);
}

void PackageKitUpdateDriver::setChannel(Channel channel)
{
    if (std::exchange(m_channel, channel) != channel)
        channelChanged();
}

void PackageKitUpdateDriver::start(Task task, Initiator initiator)
{
    m_task = task;
    m_initiator = initiator;
    refreshCache();
}

void PackageKitUpdateDriver::refreshCache()
{
    constexpr bool evenWhenFresh = false;
    run(u"RefreshCache"_s, {evenWhenFresh}, [this](const PackageKitTransaction::Outcome& refreshed) {
        if (refreshed.error) {
            qCWarning(logSystem, "New versions could not be looked for: %ls", qUtf16Printable(*refreshed.error));
            finish(false);
            return;
        }
        run(u"GetUpdates"_s, {QVariant::fromValue(noFilter)}, [this](const PackageKitTransaction::Outcome& outcome) {
            readUpdates(outcome);
        });
    });
}

void PackageKitUpdateDriver::readUpdates(const PackageKitTransaction::Outcome& outcome)
{
    if (outcome.error) {
        qCWarning(logSystem, "New versions could not be listed: %ls", qUtf16Printable(*outcome.error));
        finish(false);
        return;
    }
    const auto update = std::ranges::find(outcome.packageIds, *m_package, packageName);
    if (update == outcome.packageIds.end()) {
        finish(true);
        return;
    }
    qCInfo(logSystem, "There is a new version: %ls", qUtf16Printable(*update));
    if (m_task == Task::checkAndInstall)
        install(*update);
    else
        finish(true);
}

void PackageKitUpdateDriver::install(const QString& packageId)
{
    run(u"UpdatePackages"_s,
        {QVariant::fromValue(onlyTrusted), QStringList{packageId}},
        [this](const PackageKitTransaction::Outcome& outcome) {
            if (outcome.error)
                qCWarning(logSystem, "The new version was not installed: %ls", qUtf16Printable(*outcome.error));
            else
                qCInfo(logSystem, "The new version is installed and runs after the next start");
            finish(true);
        });
}

void PackageKitUpdateDriver::run(const QString& method,
    const QVariantList& arguments,
    std::function<void(const PackageKitTransaction::Outcome& outcome)> done)
{
    m_transaction = std::make_unique<PackageKitTransaction>(m_bus,
        m_clock,
        PackageKitTransaction::Request{
            .method = method, .arguments = arguments, .isInteractive = m_initiator == Initiator::user},
        std::move(done));
}

void PackageKitUpdateDriver::finish(bool hasChecked)
{
    m_transaction.reset();
    finished(hasChecked);
}

} // namespace Tarvik
