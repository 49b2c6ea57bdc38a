// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// Linked into every program of a sanitizer build. The leak checker names a leak by the modules on
// its stack, and the OpenGL drivers are unloaded before it runs: they have to stay, or what they
// leak cannot be told from what we leak. The project's own libraries are unloaded as ever.

#include <cstring>
#include <dlfcn.h>
#include <link.h>

extern "C" __attribute__((visibility("default"))) int dlclose(void *handle)
{
    using Close = int (*)(void *);
    static const auto close = reinterpret_cast<Close>(dlsym(RTLD_NEXT, "dlclose"));
    link_map *map = nullptr;
    const bool known = dlinfo(handle, RTLD_DI_LINKMAP, &map) == 0 && map;
    return known && std::strstr(map->l_name, "ombrel") ? close(handle) : 0;
}
