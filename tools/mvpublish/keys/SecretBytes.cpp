// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "keys/SecretBytes.h"

#include <utility>

#include <sodium.h>

void SecretBytes::Free::operator()(unsigned char* bytes) const
{
    sodium_free(bytes); // wipes them
}

SecretBytes::SecretBytes() = default;

SecretBytes::SecretBytes(std::size_t size)
    : m_size(size)
{
    if (sodium_init() < 0) // harmless to repeat
        qFatal("libsodium does not start");
    m_bytes.reset(static_cast<unsigned char*>(sodium_malloc(size)));
    Q_CHECK_PTR(m_bytes.get());
    sodium_memzero(m_bytes.get(), size);
}

SecretBytes::~SecretBytes() = default;

SecretBytes::SecretBytes(SecretBytes&& other) noexcept
    : m_bytes(std::move(other.m_bytes))
    , m_size(std::exchange(other.m_size, 0))
{
}

SecretBytes& SecretBytes::operator=(SecretBytes&& other) noexcept
{
    m_bytes = std::move(other.m_bytes);
    m_size = std::exchange(other.m_size, 0);
    return *this;
}

void SecretBytes::truncate(std::size_t size)
{
    Q_ASSERT(size <= m_size);
    if (size < m_size)
        sodium_memzero(data() + size, m_size - size);
    m_size = size;
}

bool SecretBytes::operator==(const SecretBytes& other) const
{
    return m_size == other.m_size
        && (m_size == 0 || sodium_memcmp(data(), other.data(), m_size) == 0);
}
