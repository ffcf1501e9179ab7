// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Preloaded into a power manager whose shortest idle time is too long to wait for: the alarms that it sets on the X
// server's idle counter go off in 1/TARVIK_HASTEN of the time. Everything else is as it would be.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <stdint.h>
#include <stdlib.h>

// Of <X11/extensions/sync.h>, of which a test machine's image has no headers.
typedef struct {
    int hi;
    unsigned int lo;
} XSyncValue;
typedef struct {
    unsigned long counter;
    int value_type;
    XSyncValue wait_value;
    int test_type;
} XSyncTrigger;
enum { XSyncCAValue = 1 << 2 };

/// Divides what the alarm waits for; returns what it was.
static XSyncValue hasten(unsigned long mask, XSyncTrigger* trigger)
{
    const XSyncValue asked = trigger->wait_value;
    const char* divisor = getenv("TARVIK_HASTEN");
    if (mask & XSyncCAValue && divisor && atoi(divisor) > 0) {
        const int64_t wait = ((int64_t)asked.hi << 32 | asked.lo) / atoi(divisor);
        trigger->wait_value = (XSyncValue){(int)(wait >> 32), (unsigned int)wait};
    }
    return asked;
}

// The attributes of an alarm begin with its trigger.
unsigned long XSyncCreateAlarm(void* display, unsigned long mask, XSyncTrigger* trigger)
{
    unsigned long (*original)(void*, unsigned long, XSyncTrigger*) = dlsym(RTLD_NEXT, "XSyncCreateAlarm");
    const XSyncValue asked = hasten(mask, trigger);
    const unsigned long alarm = original(display, mask, trigger);
    trigger->wait_value = asked;
    return alarm;
}

int XSyncChangeAlarm(void* display, unsigned long alarm, unsigned long mask, XSyncTrigger* trigger)
{
    int (*original)(void*, unsigned long, unsigned long, XSyncTrigger*) = dlsym(RTLD_NEXT, "XSyncChangeAlarm");
    const XSyncValue asked = hasten(mask, trigger);
    const int status = original(display, alarm, mask, trigger);
    trigger->wait_value = asked;
    return status;
}
