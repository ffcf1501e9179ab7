// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Preloaded into a test machine's logind and UPower, where the device node of the lid's switch is a pipe: answers what they
// ask an input device. The events that `hardware` writes into the pipe are the kernel's own.
#define _GNU_SOURCE
#include <errno.h>
#include <fcntl.h>
#include <linux/input.h>
#include <stdarg.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

static int is_closed(void)
{
    char state = '0';
    int file = open("/run/tarvik-machine/lid", O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return 0;
    if (read(file, &state, 1) != 1)
        state = '0';
    close(file);
    return state == '1';
}

static int answer_bit(void* answer, unsigned size, unsigned bit, int is_set)
{
    memset(answer, 0, size);
    if (is_set && bit / 8 < size)
        ((unsigned char*)answer)[bit / 8] = (unsigned char)(1U << bit % 8);
    return (int)size;
}

static int answer(unsigned long request, void* argument)
{
    const unsigned size = _IOC_SIZE(request);
    switch (_IOC_NR(request)) {
    case _IOC_NR(EVIOCGNAME(0)):
        strncpy(argument, "Lid Switch", size);
        return sizeof("Lid Switch");
    // No key is pressed. From systemd 257 on, logind gives the device up when it cannot know.
    case _IOC_NR(EVIOCGKEY(0)):
        return answer_bit(argument, size, 0, 0);
    case _IOC_NR(EVIOCGSW(0)):
        return answer_bit(argument, size, SW_LID, is_closed());
    case _IOC_NR(EVIOCGBIT(0, 0)):
        return answer_bit(argument, size, EV_SW, 1);
    case _IOC_NR(EVIOCGBIT(EV_SW, 0)):
        return answer_bit(argument, size, SW_LID, 1);
    case _IOC_NR(EVIOCGBIT(EV_KEY, 0)):
        return answer_bit(argument, size, 0, 0);
    case _IOC_NR(EVIOCSMASK):
        return 0;
    default:
        errno = EINVAL;
        return -1;
    }
}

int ioctl(int file, unsigned long request, ...)
{
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    struct stat status;
    if (_IOC_TYPE(request) == 'E' && fstat(file, &status) == 0 && S_ISFIFO(status.st_mode))
        return answer(request, argument);
    return (int)syscall(SYS_ioctl, file, request, argument);
}
