// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/UnnamedFile.h"

#include <cerrno>

int UnnamedFile::create(const QByteArray& folder, NameMaker trialName)
{
    Q_UNUSED(folder)
    Q_UNUSED(trialName)
    errno = ENOSYS;
    return -1;
}

bool UnnamedFile::setName(int handle, const QByteArray& name)
{
    Q_UNUSED(handle)
    Q_UNUSED(name)
    errno = ENOSYS;
    return false;
}
