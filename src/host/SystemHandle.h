// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <utility>

#include <windows.h>

/// Closes a handle of the system when the object is destroyed.
class SystemHandle
{
public:
    explicit SystemHandle(HANDLE handle)
        : m_handle(handle)
    {
    }
    ~SystemHandle()
    {
        if (isValid())
            ::CloseHandle(m_handle);
    }
    Q_DISABLE_COPY_MOVE(SystemHandle)

    bool isValid() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return m_handle; }
    HANDLE release() { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }

private:
    HANDLE m_handle;
};
