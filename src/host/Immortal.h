// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <cstddef>
#include <new>
#include <utility>

/// An object that is constructed at its declaration and never destroyed.
///
/// The catalogue saves the user's favourites from its destructor, after main() has returned. The
/// platform objects that it uses must still exist then, whatever the order in which the static
/// objects of several libraries are destroyed. The memory is static, so nothing leaks.
template <class T>
class Immortal
{
public:
    template <class... Args>
    explicit Immortal(Args&&... args)
        : m_object(new (m_storage) T(std::forward<Args>(args)...))
    {
    }
    Q_DISABLE_COPY_MOVE(Immortal)

    T& operator*() { return *m_object; }
    T* operator->() { return m_object; }

private:
    alignas(T) std::byte m_storage[sizeof(T)];
    T* m_object; // lives in m_storage
};
