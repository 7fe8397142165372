// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/SystemFile.h"

#include <cerrno>

bool SystemFile::isFull(int error)
{
    return error == ENOSPC || error == EDQUOT;
}
