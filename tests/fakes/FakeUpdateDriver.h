// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UpdateDriver.h"

#include <QMap>
#include <QString>

#include <utility>
#include <vector>

namespace Tarvik {

/// Updates that come when a test says so.
class FakeUpdateDriver final : public UpdateDriver {
public:
    void prepare() override { ++preparations; }
    Channel channel() const override { return current; }
    void start(Task task, Initiator initiator) override { started.emplace_back(task, initiator); }

    void become(Channel channel)
    {
        current = channel;
        channelChanged();
    }
    /// By its name on the bus; whether there is one of that name.
    bool become(const QString& name)
    {
        static const QMap<QString, Channel> channels{{QStringLiteral("unknown"), Channel::unknown},
            {QStringLiteral("available"), Channel::available},
            {QStringLiteral("system"), Channel::system},
            {QStringLiteral("source"), Channel::source},
            {QStringLiteral("manual"), Channel::manual}};
        if (channels.contains(name))
            become(channels[name]);
        return channels.contains(name);
    }
    void becomeAvailable() { become(Channel::available); }

    void finish(bool hasChecked) const { finished(hasChecked); }

    Channel current = Channel::unknown;
    int preparations = 0;
    std::vector<std::pair<Task, Initiator>> started;
};

} // namespace Tarvik
