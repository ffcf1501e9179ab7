// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

// What one event costs the agent: the time from starting a sender as a process to its end, on the session bus that
// DBUS_SESSION_BUS_ADDRESS names. The senders take turns, so that a busy moment of the machine meets all of them.

namespace {

struct Sender {
    const char* name;
    std::vector<std::string> command;
    std::vector<double> milliseconds;
};

constexpr int rounds = 200;
constexpr std::string_view payload
    = R"({"session_id":"dbac4ddc-53f9-457a-8b4c-683c31d0d942","transcript_path":"/home/u/.claude/projects/p.jsonl",)"
      R"("cwd":"/home/u/proj","permission_mode":"default","hook_event_name":"PreToolUse","tool_name":"Bash",)"
      R"("tool_input":{"command":"echo hello","timeout":60000,"description":"say hello"},"tool_use_id":"toolu_b5"})";

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "hook_tool: %s failed\n", what);
    std::exit(1);
}

double run(const Sender& sender)
{
    std::array<int, 2> input{};
    if (pipe2(input.data(), O_CLOEXEC) != 0 || write(input[1], payload.data(), payload.size()) < 0)
        fail("pipe");
    close(input[1]);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    std::vector<char*> arguments;
    for (const std::string& word : sender.command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    int status = 0;
    if (posix_spawnp(&child, arguments.front(), &actions, nullptr, arguments.data(), environ) != 0
        || waitpid(child, &status, 0) != child || status != 0)
        fail(sender.name);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - begin;

    posix_spawn_file_actions_destroy(&actions);
    close(input[0]);
    return time.count();
}

double quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fputs("Usage: dbus-run-session -- hook_tool TARVIK EMPTY\n", stderr);
        return 64;
    }
    std::vector<Sender> senders{
        {"dbus-send",
            {"dbus-send",
                "--session",
                "--type=signal",
                "/com/morvanta/tarvik/Hook",
                "com.morvanta.tarvik.hook.Event",
                "dict:string:string:action,acquire,session,claude:1,tool,claude"},
            {}},
        {"tarvik hook", {arguments[1], "hook", "--tool", "claude"}, {}},
        {"busctl emit",
            {"busctl",
                "--user",
                "emit",
                "/com/morvanta/tarvik/Hook",
                "com.morvanta.tarvik.hook",
                "Event",
                "a{ss}",
                "3",
                "action",
                "acquire",
                "session",
                "claude:1",
                "tool",
                "claude"},
            {}},
        {"empty program", {arguments[2]}, {}},
    };
    for (int round = -5; round < rounds; ++round) {
        for (Sender& sender : senders) {
            const double time = run(sender);
            if (round >= 0)
                sender.milliseconds.push_back(time);
        }
    }
    // Starting any program at all has its price, which differs much between machines: the last column leaves it out.
    const double reference = quantile(senders.front().milliseconds, 0.5);
    const double floor = quantile(senders.back().milliseconds, 0.5);
    std::printf("%-14s %10s %10s %10s %12s   (%d runs)\n", "", "median", "90 %", "ratio", "above empty", rounds);
    for (const Sender& sender : senders) {
        const double median = quantile(sender.milliseconds, 0.5);
        std::printf("%-14s %7.2f ms %7.2f ms %10.2f %12.2f\n",
            sender.name,
            median,
            quantile(sender.milliseconds, 0.9),
            median / reference,
            (median - floor) / (reference - floor));
    }
}
