// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UpdateDriver.h"
#include "platform/linux/updates/PackageKitTransaction.h"

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// Updates of the one package that the program belongs to, through PackageKit (D-Bus service
/// org.freedesktop.PackageKit). Without PackageKit, or for a program that no package has installed, there are none.
/// PackageKit is a large program that ends by itself when nobody has used it for a while, so that it is only started
/// when there is something to ask.
class PackageKitUpdateDriver final : public UpdateDriver {
public:
    /// `systemBus` is the connection to the system bus, `program` the absolute path of the executable; `clock` must
    /// outlive the object.
    PackageKitUpdateDriver(QDBusConnection systemBus, QString program, Clock& clock);

    void prepare() override;
    Channel channel() const override { return m_channel; }
    void start(Task task, Initiator initiator) override;

private:
    void setChannel(Channel channel);
    void readPackage(const PackageKitTransaction::Outcome& outcome);
    void refreshCache();
    void readUpdates(const PackageKitTransaction::Outcome& outcome);
    void install(const QString& packageId);
    void run(const QString& method,
        const QVariantList& arguments,
        std::function<void(const PackageKitTransaction::Outcome& outcome)> done);
    void finish(bool hasChecked);

    QDBusConnection m_bus;
    QString m_program;
    Clock& m_clock;
    /// The question whether there is a package has been asked, and nothing speaks for asking it again.
    bool m_isPrepared = false;
    Channel m_channel;
    /// The name of the package; there is one when updates are available.
    std::optional<QString> m_package;
    Task m_task = Task::check;
    Initiator m_initiator = Initiator::timer;
    std::unique_ptr<PackageKitTransaction> m_transaction;
};

} // namespace Tarvik
