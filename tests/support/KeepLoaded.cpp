// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

// Linked into programs of a sanitized build. Qt unloads QML and platform plugins at exit; what
// their static variables held then looks leaked to the leak detector, which can name no module for
// it. With every library kept loaded only true leaks are left, and they have names.

extern "C" __attribute__((visibility("default"))) int dlclose(void *)
{
    return 0;
}
