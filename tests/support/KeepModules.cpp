// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Linked into programs that run as separate processes in the address sanitizer's preset. A plugin's
// static objects count as leaked once the plugin is unloaded, with unnamed frames, so that no
// suppression could tell them from a real leak.

extern "C" __attribute__((visibility("default"))) int dlclose(void* /*module*/)
{
    return 0;
}
