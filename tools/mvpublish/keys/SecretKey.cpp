// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "keys/SecretKey.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <sodium.h>

namespace {

constexpr std::size_t idBytes = ReleaseKey::idBytes;
constexpr std::size_t pairBytes = idBytes + crypto_sign_SECRETKEYBYTES;
constexpr std::size_t checksumBytes = crypto_generichash_BYTES;
constexpr std::size_t boxBytes = pairBytes + checksumBytes;

// The fields of a decoded key file.
constexpr std::size_t kdfAt = 2;
constexpr std::size_t checksumAlgorithmAt = 4;
constexpr std::size_t saltAt = 6;
constexpr std::size_t operationsAt = saltAt + crypto_pwhash_scryptsalsa208sha256_SALTBYTES;
constexpr std::size_t memoryAt = operationsAt + 8;
constexpr std::size_t boxAt = memoryAt + 8;
constexpr std::size_t keyBytes = boxAt + boxBytes;

const char signatureAlgorithm[] = "Ed";
const char prehashedAlgorithm[] = "ED";
const char scrypt[] = "Sc";
const char blake2b[] = "B2";
const char commentLine[] = "untrusted comment: minisign secret key of mvpublish\n";
const char commentPrefix[] = "untrusted comment:";

bool hasTag(const unsigned char* at, const char* tag)
{
    return std::memcmp(at, tag, 2) == 0;
}

quint64 numberAt(const unsigned char* at)
{
    quint64 number = 0;
    for (int i = 7; i >= 0; --i)
        number = number << 8U | at[i];
    return number;
}

void setNumber(unsigned char* at, quint64 number)
{
    for (int i = 0; i < 8; ++i)
        at[i] = static_cast<unsigned char>(number >> (8U * static_cast<unsigned>(i)));
}

/// Returns the fields of a key file; empty for any other content.
SecretBytes decoded(const SecretBytes& file)
{
    const char* const end = file.text() + file.size();
    const char* const line = std::find(file.text(), end, '\n');
    const std::size_t prefix = sizeof commentPrefix - 1;
    if (file.size() < prefix || std::memcmp(file.data(), commentPrefix, prefix) != 0 || line == end)
        return {};
    SecretBytes key(keyBytes);
    std::size_t length = 0;
    const char* rest = nullptr;
    const bool isDecoded = sodium_base642bin(key.data(), key.size(), line + 1,
                                             static_cast<std::size_t>(end - line - 1), "\r\n ",
                                             &length, &rest, sodium_base64_VARIANT_ORIGINAL)
        == 0;
    const bool isKey = isDecoded && rest == end && length == keyBytes
        && hasTag(key.data(), signatureAlgorithm)
        && hasTag(key.data() + checksumAlgorithmAt, blake2b)
        && (hasTag(key.data() + kdfAt, scrypt) || hasTag(key.data() + kdfAt, "\0\0"));
    return isKey ? std::move(key) : SecretBytes();
}

bool isProtected(const SecretBytes& key)
{
    return hasTag(key.data() + kdfAt, scrypt);
}

/// Combines id, key and checksum with the stream that the password gives. Returns false if there
/// is no memory for it, or the limits are not those of scrypt.
bool applyPassword(SecretBytes& key, const SecretBytes& password)
{
    SecretBytes stream(boxBytes);
    if (crypto_pwhash_scryptsalsa208sha256(
            stream.data(), stream.size(), password.text(), password.size(), key.data() + saltAt,
            numberAt(key.data() + operationsAt), numberAt(key.data() + memoryAt))
        != 0)
        return false;
    for (std::size_t i = 0; i < boxBytes; ++i)
        key.data()[boxAt + i] ^= stream.data()[i];
    return true;
}

void checksum(const unsigned char* pair, unsigned char* out)
{
    crypto_generichash_state state;
    crypto_generichash_init(&state, nullptr, 0, checksumBytes);
    crypto_generichash_update(&state, reinterpret_cast<const unsigned char*>(signatureAlgorithm),
                              2);
    crypto_generichash_update(&state, pair, pairBytes);
    crypto_generichash_final(&state, out, checksumBytes);
    sodium_memzero(&state, sizeof state);
}

/// Returns whether the checksum is right; without a password minisign writes zeros instead.
bool isIntact(const SecretBytes& key, bool hasPassword)
{
    const unsigned char* const found = key.data() + boxAt + pairBytes;
    SecretBytes expected(checksumBytes);
    if (!hasPassword && sodium_memcmp(expected.data(), found, checksumBytes) == 0)
        return true;
    checksum(key.data() + boxAt, expected.data());
    return sodium_memcmp(expected.data(), found, checksumBytes) == 0;
}

SecretBytes encoded(const SecretBytes& key)
{
    constexpr std::size_t prefix = sizeof commentLine - 1;
    constexpr int variant = sodium_base64_VARIANT_ORIGINAL;
    const std::size_t base64 = sodium_base64_encoded_len(keyBytes, variant);
    SecretBytes file(prefix + base64); // with a final zero, which becomes the line end
    std::memcpy(file.data(), commentLine, prefix);
    sodium_bin2base64(file.text() + prefix, base64, key.data(), keyBytes, variant);
    file.text()[file.size() - 1] = '\n';
    return file;
}

QByteArray signatureOf(const QByteArray& message, const unsigned char* key)
{
    QByteArray signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(reinterpret_cast<unsigned char*>(signature.data()), nullptr,
                         reinterpret_cast<const unsigned char*>(message.constData()),
                         static_cast<unsigned long long>(message.size()), key);
    return signature;
}

QByteArray bytesOf(const unsigned char* at, std::size_t size)
{
    return QByteArray(reinterpret_cast<const char*>(at), static_cast<int>(size));
}

} // namespace

SecretKey SecretKey::generate()
{
    SecretKey key;
    key.m_pair = SecretBytes(pairBytes);
    unsigned char publicPart[crypto_sign_PUBLICKEYBYTES];
    randombytes_buf(key.m_pair.data(), idBytes);
    crypto_sign_keypair(publicPart, key.m_pair.data() + idBytes);
    return key;
}

bool SecretKey::needsPassword(const SecretBytes& file)
{
    const SecretBytes key = decoded(file);
    return !key.isEmpty() && isProtected(key);
}

SecretKey::Result SecretKey::read(const SecretBytes& file, const SecretBytes& password,
                                  SecretKey& out)
{
    SecretBytes key = decoded(file);
    if (key.isEmpty())
        return Result::Malformed;
    const bool hasPassword = isProtected(key);
    if (hasPassword && !applyPassword(key, password))
        return Result::NoMemory;
    if (!isIntact(key, hasPassword))
        return hasPassword ? Result::WrongPassword : Result::Malformed;
    out.m_pair = SecretBytes(pairBytes);
    std::memcpy(out.m_pair.data(), key.data() + boxAt, pairBytes);
    return Result::Success;
}

SecretBytes SecretKey::toFile(const SecretBytes& password) const
{
    SecretBytes key(keyBytes);
    std::memcpy(key.data(), signatureAlgorithm, 2);
    std::memcpy(key.data() + checksumAlgorithmAt, blake2b, 2);
    std::memcpy(key.data() + boxAt, m_pair.data(), pairBytes);
    checksum(m_pair.data(), key.data() + boxAt + pairBytes);
    if (password.isEmpty())
        return encoded(key);
    std::memcpy(key.data() + kdfAt, scrypt, 2);
    randombytes_buf(key.data() + saltAt, crypto_pwhash_scryptsalsa208sha256_SALTBYTES);
    quint64 operations = crypto_pwhash_scryptsalsa208sha256_OPSLIMIT_SENSITIVE;
    quint64 memory = crypto_pwhash_scryptsalsa208sha256_MEMLIMIT_SENSITIVE;
    // As minisign does on a small machine, but never below what protects a password typed daily.
    for (; memory >= crypto_pwhash_scryptsalsa208sha256_MEMLIMIT_INTERACTIVE;
         memory /= 2, operations /= 2) {
        setNumber(key.data() + operationsAt, operations);
        setNumber(key.data() + memoryAt, memory);
        if (applyPassword(key, password))
            return encoded(key);
    }
    return {};
}

ReleaseKey SecretKey::publicKey() const
{
    // The second half of an Ed25519 key is its public part.
    return {bytesOf(m_pair.data(), idBytes),
            bytesOf(m_pair.data() + pairBytes - ReleaseKey::keyBytes, ReleaseKey::keyBytes)};
}

QByteArray SecretKey::sign(const QByteArray& content, const QByteArray& trustedComment) const
{
    QByteArray digest(crypto_generichash_BYTES_MAX, '\0'); // BLAKE2b-512
    crypto_generichash(reinterpret_cast<unsigned char*>(digest.data()),
                       static_cast<std::size_t>(digest.size()),
                       reinterpret_cast<const unsigned char*>(content.constData()),
                       static_cast<unsigned long long>(content.size()), nullptr, 0);
    const unsigned char* const key = m_pair.data() + idBytes;
    const QByteArray signature = signatureOf(digest, key);
    const QByteArray id = bytesOf(m_pair.data(), idBytes);
    return "untrusted comment: verify with the public key " + publicKey().idText().toLatin1() + '\n'
        + (prehashedAlgorithm + id + signature).toBase64() + "\ntrusted comment: " + trustedComment
        + '\n' + signatureOf(signature + trustedComment, key).toBase64() + '\n';
}
