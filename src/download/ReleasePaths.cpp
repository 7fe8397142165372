// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"

namespace {

constexpr int prefixDigits = 2;

QString signatureSuffix()
{
    return QStringLiteral(".minisig");
}

} // namespace

QString ReleasePaths::release()
{
    return QStringLiteral("ResourceConfig/release.json");
}

QString ReleasePaths::signature()
{
    return release() + signatureSuffix();
}

QString ReleasePaths::list()
{
    return QStringLiteral("ResourceConfig/files.txt");
}

QString ReleasePaths::contentFolder()
{
    return QStringLiteral("content");
}

QString ReleasePaths::content(const QByteArray& digest)
{
    const QString name = QString::fromLatin1(digest);
    return QStringLiteral("%1/%2/%3").arg(contentFolder(), name.left(prefixDigits), name);
}

QString ReleasePaths::signatureOf(const QByteArray& releaseDigest)
{
    return content(releaseDigest) + signatureSuffix();
}
