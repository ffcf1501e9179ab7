// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include <unistd.h>

/// Does nothing, whatever it is called and told.
int main()
{
    for (;;)
        pause();
}
