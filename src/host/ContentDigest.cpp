// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/ContentDigest.h"

#include "host/RegularFile.h"

#ifdef MV_OPENSSL_DIGEST
#include <openssl/evp.h>
#else
#include <QCryptographicHash>
#endif
#include <QFile>

#include <algorithm>

#ifdef MV_OPENSSL_DIGEST

/// OpenSSL uses the processor's instructions for SHA-256, which takes a tenth of Qt's time.
class ContentDigest::Private
{
public:
    Private() { reset(); }

    void add(const char* bytes, qint64 length)
    {
        EVP_DigestUpdate(m_state.get(), bytes, static_cast<std::size_t>(length));
    }
    void reset() { EVP_DigestInit_ex(m_state.get(), EVP_sha256(), nullptr); }
    QByteArray result() const
    {
        const State copy(EVP_MD_CTX_new()); // reading the result ends a computation
        EVP_MD_CTX_copy_ex(copy.get(), m_state.get());
        QByteArray bytes(EVP_MAX_MD_SIZE, '\0');
        unsigned int size = 0;
        EVP_DigestFinal_ex(copy.get(), reinterpret_cast<unsigned char*>(bytes.data()), &size);
        bytes.truncate(static_cast<int>(size));
        return bytes;
    }

private:
    struct Free
    {
        void operator()(EVP_MD_CTX* state) const { EVP_MD_CTX_free(state); }
    };
    using State = std::unique_ptr<EVP_MD_CTX, Free>;

    State m_state{EVP_MD_CTX_new()};
};

#else

class ContentDigest::Private
{
public:
    void add(const char* bytes, qint64 length)
    {
        m_hash.addData(QByteArray::fromRawData(bytes, static_cast<int>(length)));
    }
    void reset() { m_hash.reset(); }
    QByteArray result() const { return m_hash.result(); }

private:
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
};

#endif

ContentDigest::ContentDigest()
    : d(std::make_unique<Private>())
{
}

ContentDigest::~ContentDigest() = default;

void ContentDigest::add(const char* bytes, qint64 length)
{
    d->add(bytes, length);
}

void ContentDigest::reset()
{
    d->reset();
}

QByteArray ContentDigest::hex() const
{
    return d->result().toHex();
}

QByteArray ContentDigest::ofBytes(const QByteArray& bytes)
{
    ContentDigest digest;
    digest.add(bytes.constData(), bytes.size());
    return digest.hex();
}

QByteArray ContentDigest::ofFile(const QString& path, const Progress& progress)
{
    QFile file(path);
    if (!RegularFile::open(file))
        return {};
    ContentDigest digest;
    qint64 size = 0;
    const bool isRead = RegularFile::readChunks(file, [&](const char* bytes, int length) {
        digest.add(bytes, length);
        size += length;
        return !progress || progress(size);
    });
    return isRead ? digest.hex() : QByteArray();
}

bool ContentDigest::isDigest(const QByteArray& text)
{
    return text.size() == hexDigits && std::all_of(text.cbegin(), text.cend(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}
