// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "HelperObject.h"
#include "IdleExit.h"
#include "Log.h"
#include "Options.h"

#include "platform/HelperWire.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>

using namespace Tarvik;

static constexpr int usageStatus = 64;

static std::string machLabel()
{
    const char* label = std::getenv(HelperWire::machLabelKey);
    return label == nullptr ? HelperWire::defaultMachLabel : label;
}

static void refuseName(const std::string& reason)
{
    logError("The bus does not let this program be called \"" + machLabel() + "\": " + reason);
    if (std::getenv(HelperWire::machLabelKey) == nullptr)
        logError(std::string(HelperWire::machLabelKey) + " is not set; the helper is meant to be started by the bus.");
}

static int onName(sd_bus_message* reply, void* event, sd_bus_error*)
{
    // sd-bus has no name for this number of the D-Bus specification's.
    constexpr unsigned primaryOwner = 1;
    unsigned result = 0;
    const sd_bus_error* error = sd_bus_message_get_error(reply);
    if (error == nullptr && sd_bus_message_read(reply, "u", &result) >= 0 && result == primaryOwner)
        return 0;
    refuseName(error != nullptr ? error->message : "another program is");
    return sd_event_exit(static_cast<sd_event*>(event), EXIT_FAILURE);
}

static void endOn(int signal, sd_event* event)
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, signal);
    check(-pthread_sigmask(SIG_BLOCK, &signals, nullptr), "blocking a signal");
    check(sd_event_add_signal(event, nullptr, signal, nullptr, nullptr), "waiting for a signal");
}

static int serve(const Options& options)
{
    // Nobody may read the log any more.
    std::signal(SIGPIPE, SIG_IGN);
    EventHandle event;
    check(sd_event_default(Into(event)), "starting");
    // A helper that hangs would keep the computer awake; the system ends it.
    check(sd_event_set_watchdog(event.get(), true), "starting");
    endOn(SIGTERM, event.get());
    endOn(SIGINT, event.get());

    BusHandle bus;
    check(sd_bus_open_system(Into(bus)), "connecting to the system bus");
    check(sd_bus_set_exit_on_disconnect(bus.get(), true), "starting");
    // What would then be waited for is a bus that takes nothing, while the lock is still held.
    check(sd_bus_set_close_on_exit(bus.get(), false), "starting");
    check(sd_bus_attach_event(bus.get(), event.get(), SD_EVENT_PRIORITY_NORMAL), "starting");

    const std::string label = machLabel();
    HelperObject service(bus.get(), event.get(), options.lapse);
    const IdleExit idleExit(bus.get(), event.get(), service, label, options.idle);
    if (sd_bus_request_name_async(bus.get(), nullptr, label.c_str(), 0, onName, event.get()) < 0) {
        refuseName("it is no name that a service can have");
        return EXIT_FAILURE;
    }

    const int status = sd_event_loop(event.get());
    check(status, "waiting for calls");
    if (sd_bus_is_open(bus.get()) == 0)
        logError("The system bus has gone.");
    return status;
}

int main(int count, char** arguments)
{
    try {
        const auto options = parseOptions({arguments + (count > 0 ? 1 : 0), arguments + count});
        if (!options) {
            std::fputs("tarvik-helper: wrong arguments (see \"tarvik-helper --help\")\n", stderr);
            return usageStatus;
        }
        switch (options->job) {
        case Options::Job::help:
            std::fputs(helpText, stdout);
            return EXIT_SUCCESS;
        case Options::Job::version:
            std::puts("tarvik-helper " TARVIK_VERSION);
            return EXIT_SUCCESS;
        case Options::Job::serve:
            return serve(*options);
        }
    } catch (const std::exception& error) {
        logError(error.what());
    }
    return EXIT_FAILURE;
}
