// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

// Part of the sanitizer's run-time library, which does not declare them.
extern "C" {
void AnnotateIgnoreSyncBegin(const char* file, int line);
void AnnotateIgnoreSyncEnd(const char* file, int line);
void AnnotateIgnoreReadsBegin(const char* file, int line);
void AnnotateIgnoreReadsEnd(const char* file, int line);
void AnnotateIgnoreWritesBegin(const char* file, int line);
void AnnotateIgnoreWritesEnd(const char* file, int line);
// NOLINTBEGIN(bugprone-reserved-identifier): the library's names
void __tsan_read8(void* address);
void __tsan_write8(void* address);
// NOLINTEND(bugprone-reserved-identifier)
}

/// Helpers shared by the definitions that interpose Qt's functions.
namespace Announce {

/// Makes everything the calling thread has done visible to threads that observe the address later.
inline void publish(const void* address)
{
    __tsan_release(const_cast<void*>(address));
}

inline void observe(const void* address)
{
    __tsan_acquire(const_cast<void*>(address));
}

/// Hides work from the sanitizer, so that it counts neither as synchronization nor as access.
class Unwatched
{
public:
    Unwatched()
    {
        AnnotateIgnoreSyncBegin(__FILE__, __LINE__);
        AnnotateIgnoreReadsBegin(__FILE__, __LINE__);
        AnnotateIgnoreWritesBegin(__FILE__, __LINE__);
    }
    ~Unwatched()
    {
        AnnotateIgnoreWritesEnd(__FILE__, __LINE__);
        AnnotateIgnoreReadsEnd(__FILE__, __LINE__);
        AnnotateIgnoreSyncEnd(__FILE__, __LINE__);
    }
    Q_DISABLE_COPY_MOVE(Unwatched)
};

/// Returns the function hidden by the definition of the same name.
template <class Function>
Function* original(const char* mangledName)
{
    void* const address = dlsym(RTLD_NEXT, mangledName);
    if (!address) {
        std::fprintf(stderr, "no %s in this Qt\n", mangledName);
        std::abort();
    }
    return reinterpret_cast<Function*>(address);
}

} // namespace Announce
