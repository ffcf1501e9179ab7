// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "CommandLine.h"
#include "HeldCommand.h"
#include "HomeDirectory.h"
#include "HookCommand.h"
#include "InvokingUser.h"
#include "StatusFollower.h"
#include "StatusReport.h"
#include "Unhooking.h"

#include "platform/HookWire.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace Tarvik;
using namespace std::chrono_literals;

static constexpr int usageStatus = 64;
static constexpr int notRunningStatus = 2;
// Somebody waits at the terminal for these, but no agent.
static constexpr auto patience = 2s;
// Tarvik asks others before it says why.
static constexpr auto patienceWithAll = 6s;
static constexpr auto renewalPeriod = 60s;

static int runHook(int count, char** arguments)
{
    HookCommand::guardProcess();
    try {
        return HookCommand(parseHookArguments({arguments, arguments + count}), processEnvironment()).run();
    } catch (...) {
        return 0;
    }
}

static int runLease(const CommandLine& line, const InvokingUser& user, const std::vector<BusAddress>& buses)
{
    Announcement announcement;
    announcement.action = line.verb == CommandLine::Verb::acquire ? HookWire::acquireAction
        : line.verb == CommandLine::Verb::release                 ? HookWire::releaseAction
                                                                  : HookWire::releaseAllAction;
    announcement.session = line.session;
    announcement.tool = line.tool;
    announcement.ttl = line.ttl;
    announcement.reason = line.reason;
    if (announce(announcement, buses, user.user, Deadline(patience)))
        return 0;
    std::fputs("tarvik: no session bus answers; is this user logged in to a desktop?\n", stderr);
    return 1;
}

static int runHold(const CommandLine& line, const InvokingUser& user, const std::vector<BusAddress>& buses)
{
    // The program that is run keeps the rights that it was started with.
    HeldCommand held(line.command, line.reason, renewalPeriod, [&](const Announcement& announcement) {
        const ActingAsInvokingUser acting(user);
        return announce(announcement, buses, user.user, Deadline(patience));
    });
    return held.run();
}

static const char* notRunningText(bool asJson)
{
    return asJson ? "{\"isRunning\":false}" : "Tarvik is not running.";
}

static int runStatus(
    StatusQuestion question, bool asJson, const InvokingUser& user, const std::vector<BusAddress>& buses)
{
    const Deadline deadline(question == StatusQuestion::why ? patienceWithAll : patience);
    const auto report = askForStatus(question, asJson, buses, user.user, deadline);
    if (!report) {
        std::puts(notRunningText(asJson));
        return notRunningStatus;
    }
    std::puts(report->text.c_str());
    return report->isAwake ? 0 : 1;
}

static int runFollow(bool asJson, const InvokingUser& user, const std::vector<BusAddress>& buses)
{
    std::string last;
    const auto tell = [&](const std::optional<StatusReport>& report) {
        const std::string text = report ? report->text : notRunningText(asJson);
        const std::string line = text.substr(0, text.find('\n'));
        if (line == std::exchange(last, line))
            return;
        std::puts(line.c_str());
        // Whoever reads it waits for the line, not for a buffer full of them.
        std::fflush(stdout);
    };
    followStatus(asJson, buses, user.user, STDOUT_FILENO, tell);
    if (last.empty())
        tell({});
    return notRunningStatus;
}

static int runUnhook(const Environment& environment, const InvokingUser& user)
{
    const auto home = homeDirectory(environment, user);
    if (!home) {
        std::fputs("tarvik: this user's home directory is not known; run it without sudo\n", stderr);
        return 1;
    }
    int status = 0;
    for (const HookSpec& spec : HookSpec::all) {
        const Unhooking unhooking = unhook(*home, spec);
        if (unhooking.isFailure)
            status = 1;
        std::fprintf(unhooking.isFailure ? stderr : stdout, "%s\n", unhooking.text.c_str());
    }
    return status;
}

static int run(const CommandLine& line)
{
    using Verb = CommandLine::Verb;
    const Environment environment = processEnvironment();
    const InvokingUser user = invokingUser(environment, geteuid(), getegid());
    const auto buses = sessionBusCandidates(environment, user.user);
    if (line.verb != Verb::hold && !becomeInvokingUser(user)) {
        std::fputs("tarvik: cannot act as the user who called sudo\n", stderr);
        return 1;
    }
    switch (line.verb) {
    case Verb::help:
        std::fputs(helpText, stdout);
        return 0;
    case Verb::version:
        std::puts("tarvik " TARVIK_VERSION);
        return 0;
    case Verb::acquire:
    case Verb::release:
    case Verb::releaseAll:
        return runLease(line, user, buses);
    case Verb::hold:
        return runHold(line, user, buses);
    case Verb::status:
        return line.follows ? runFollow(line.asJson, user, buses)
                            : runStatus(StatusQuestion::status, line.asJson, user, buses);
    case Verb::why:
        return runStatus(StatusQuestion::why, line.asJson, user, buses);
    case Verb::unhook:
        return runUnhook(environment, user);
    }
    return usageStatus;
}

int main(int count, char** arguments)
{
    if (count > 1 && std::strcmp(arguments[1], "hook") == 0)
        return runHook(count - 2, arguments + 2);
    try {
        const auto parsed = parseCommandLine({arguments + (count > 0 ? 1 : 0), arguments + count});
        if (const auto* error = std::get_if<UsageError>(&parsed)) {
            std::fprintf(stderr, "tarvik: %s (see \"tarvik --help\")\n", error->message.c_str());
            return usageStatus;
        }
        return run(std::get<CommandLine>(parsed));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tarvik: %s\n", error.what());
        return 1;
    }
}
