// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ParentConsole.h"

#include <cstdio>

#include <windows.h>

namespace {

bool leadsNowhere(DWORD stream)
{
    const HANDLE handle = ::GetStdHandle(stream);
    return handle == nullptr || handle == INVALID_HANDLE_VALUE
        || ::GetFileType(handle) == FILE_TYPE_UNKNOWN;
}

} // namespace

void ParentConsole::attach()
{
    // Asked first: attaching replaces the handles.
    const bool needsOutput = leadsNowhere(STD_OUTPUT_HANDLE);
    const bool needsError = leadsNowhere(STD_ERROR_HANDLE);
    if (!needsOutput && !needsError)
        return;
    if (::AttachConsole(ATTACH_PARENT_PROCESS) == 0)
        return;
    if (needsOutput)
        std::freopen("CONOUT$", "w", stdout);
    if (needsError)
        std::freopen("CONOUT$", "w", stderr);
}
