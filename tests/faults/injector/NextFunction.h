// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>

#include <dlfcn.h>

/// Returns the C library's function that this library interposes, looked up on the first call.
template <class Function>
class NextFunction
{
public:
    explicit constexpr NextFunction(const char* name)
        : m_name(name)
    {
    }

    template <class... Arguments>
    auto operator()(Arguments... arguments)
    {
        Function* function = m_function;
        if (!function) {
            function = reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, m_name));
            m_function = function;
        }
        return function(arguments...);
    }

private:
    const char* m_name;
    std::atomic<Function*> m_function{nullptr};
};
