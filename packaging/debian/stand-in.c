// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Stands in for the tool of a package that was removed, until "apt purge tarvik-engine" takes this away, too. Agents run the
// tool as their hook, and some refuse to work when it is missing or fails: for them it takes what it is told, does nothing and
// says nothing. Anybody else is told the truth. No script, because a shell opens its script a second time, and then may find
// the tool of a new installation in its place.
#include <signal.h>
#include <stdio.h>
#include <string.h>
#include <sys/time.h>
#include <unistd.h>

static void leave(int signal_number)
{
    (void)signal_number;
    _exit(0);
}

/// An agent that is still writing shall find a reader; one that never ends its message need not wait for us.
static void drain_input(void)
{
    const struct itimerval patience = {.it_value = {.tv_usec = 200 * 1000}};
    char bytes[4096];
    signal(SIGALRM, leave);
    setitimer(ITIMER_REAL, &patience, NULL);
    while (read(STDIN_FILENO, bytes, sizeof bytes) > 0) {
    }
}

int main(int argc, char** argv)
{
    if (argc > 1 && strcmp(argv[1], "hook") == 0) {
        drain_input();
        return 0;
    }
    fputs("tarvik: Tarvik was removed from this computer.\n", stderr);
    return 127;
}
