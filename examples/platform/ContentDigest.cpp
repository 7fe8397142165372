// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/ContentDigest.h"

#include "host/RegularFile.h"

#include <QCryptographicHash>
#include <QFile>

#include <algorithm>

class ContentDigest::Private
{
public:
    QCryptographicHash hash{QCryptographicHash::Sha256};
};

ContentDigest::ContentDigest()
    : d(std::make_unique<Private>())
{
}

ContentDigest::~ContentDigest() = default;

void ContentDigest::add(const char* bytes, qint64 length)
{
    d->hash.addData(QByteArray::fromRawData(bytes, static_cast<int>(length)));
}

void ContentDigest::reset()
{
    d->hash.reset();
}

QByteArray ContentDigest::hex() const
{
    return d->hash.result().toHex();
}

QByteArray ContentDigest::ofBytes(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QByteArray ContentDigest::ofFile(const QString& path, const Progress& progress)
{
    QFile file(path);
    if (!RegularFile::open(file))
        return QByteArray();
    ContentDigest digest;
    qint64 read = 0;
    const bool isWhole = RegularFile::readChunks(file, [&](const char* bytes, int length) {
        digest.add(bytes, length);
        read += length;
        return !progress || progress(read);
    });
    return isWhole ? digest.hex() : QByteArray();
}

bool ContentDigest::isDigest(const QByteArray& text)
{
    return text.size() == hexDigits && std::all_of(text.cbegin(), text.cend(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
           });
}
