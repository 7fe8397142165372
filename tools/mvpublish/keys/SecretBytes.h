// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <cstddef>
#include <memory>

/// Bytes that nobody else may see, such as a password or a secret key: in memory that is kept from
/// being swapped where the system allows it, and wiped when the object is destroyed. A move-only
/// value, any thread.
class SecretBytes
{
public:
    SecretBytes();
    /// Makes `size` bytes of zeros. The process ends if there is no memory.
    explicit SecretBytes(std::size_t size);
    ~SecretBytes();
    SecretBytes(SecretBytes&& other) noexcept;
    SecretBytes& operator=(SecretBytes&& other) noexcept;
    SecretBytes(const SecretBytes&) = delete;
    SecretBytes& operator=(const SecretBytes&) = delete;

    unsigned char* data() { return m_bytes.get(); }
    const unsigned char* data() const { return m_bytes.get(); }
    char* text() { return reinterpret_cast<char*>(m_bytes.get()); }
    const char* text() const { return reinterpret_cast<const char*>(m_bytes.get()); }
    std::size_t size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }

    /// Drops the bytes from `size` on, which is at most size().
    void truncate(std::size_t size);
    bool operator==(const SecretBytes& other) const;

private:
    struct Free
    {
        void operator()(unsigned char* bytes) const;
    };

    std::unique_ptr<unsigned char, Free> m_bytes;
    std::size_t m_size = 0;
};
