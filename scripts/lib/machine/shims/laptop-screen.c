// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// Preloaded into a test machine's Xorg. Gives the "dummy" video driver what the screen of every laptop has:
// - It can be switched off. Without it the server offers no DPMS. Each change goes into a log: the time and the level,
//   0 (on) to 3 (off).
// - It is built in: called eDP-1. Desktops take DUMMY0 for an external one.
// Two functions of the server that the driver calls are redirected to the ones below when the server loads the driver.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <elf.h>
#include <link.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

static void log_level(void* screen, int level, int flags)
{
    (void)screen;
    (void)flags;
    FILE* log = fopen("/run/tarvik-machine/display.log", "a");
    if (!log)
        return;
    struct timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    fprintf(log, "%ld.%03ld %d\n", (long)now.tv_sec, now.tv_nsec / 1000000, level);
    fclose(log);
}

static int screen_init(void* screen, void* bits, int width, int height, int dpi_x, int dpi_y, int stride, int depth)
{
    int (*original)(void*, void*, int, int, int, int, int, int) = dlsym(RTLD_DEFAULT, "fbScreenInit");
    int (*offer_dpms)(void*, void (*)(void*, int, int), int) = dlsym(RTLD_DEFAULT, "xf86DPMSInit");
    if (!original || !original(screen, bits, width, height, dpi_x, dpi_y, stride, depth))
        return 0;
    if (offer_dpms)
        offer_dpms(screen, log_level, 0);
    return 1;
}

static void* output_create(void* screen, const void* functions, const char* name)
{
    void* (*original)(void*, const void*, const char*) = dlsym(RTLD_DEFAULT, "xf86OutputCreate");
    return original(screen, functions, name && strcmp(name, "DUMMY0") == 0 ? "eDP-1" : name);
}

static void redirect(const struct link_map* module, const char* function, void* replacement)
{
    const ElfW(Sym)* symbols = NULL;
    const char* names = NULL;
    const ElfW(Rela) * tables[2] = {NULL, NULL};
    size_t sizes[2] = {0, 0};
    for (const ElfW(Dyn)* entry = module->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_SYMTAB)
            symbols = (const void*)entry->d_un.d_ptr;
        else if (entry->d_tag == DT_STRTAB)
            names = (const void*)entry->d_un.d_ptr;
        else if (entry->d_tag == DT_JMPREL)
            tables[0] = (const void*)entry->d_un.d_ptr;
        else if (entry->d_tag == DT_PLTRELSZ)
            sizes[0] = entry->d_un.d_val;
        else if (entry->d_tag == DT_RELA)
            tables[1] = (const void*)entry->d_un.d_ptr;
        else if (entry->d_tag == DT_RELASZ)
            sizes[1] = entry->d_un.d_val;
    }
    if (!symbols || !names)
        return;
    const uintptr_t page = (uintptr_t)sysconf(_SC_PAGESIZE);
    for (int table = 0; table < 2; ++table) {
        for (size_t i = 0; tables[table] && i < sizes[table] / sizeof(ElfW(Rela)); ++i) {
            const ElfW(Rela)* relocation = &tables[table][i];
            const size_t symbol = ELF64_R_SYM(relocation->r_info);
            if (symbol == 0 || strcmp(names + symbols[symbol].st_name, function) != 0)
                continue;
            void** slot = (void**)(module->l_addr + relocation->r_offset);
            mprotect((void*)((uintptr_t)slot & ~(page - 1)), page, PROT_READ | PROT_WRITE);
            *slot = replacement;
        }
    }
}

void* dlopen(const char* file, int flags)
{
    void* (*original)(const char*, int) = dlsym(RTLD_NEXT, "dlopen");
    void* handle = original(file, flags);
    struct link_map* module;
    if (handle && file && strstr(file, "dummy_drv.so") && dlinfo(handle, RTLD_DI_LINKMAP, &module) == 0) {
        redirect(module, "fbScreenInit", (void*)screen_init);
        redirect(module, "xf86OutputCreate", (void*)output_create);
    }
    return handle;
}
