# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Waiting for what another process does: until it has happened, never for a time."""
import time

# In seconds. A busy machine may not let a process run for seconds at a time.
PATIENCE = 30


def eventually(condition, what, patience=PATIENCE, period=0.01):
    """Asks every `period` seconds until the condition holds, and returns its value. `what` names what should happen; a function
    that returns it is asked when it has not."""
    end = time.monotonic() + patience
    while not (value := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"never happened: {what() if callable(what) else what}")
        time.sleep(period)
    return value
