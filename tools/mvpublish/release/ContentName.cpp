// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/ContentName.h"

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"

ContentName::ContentName(const QString& name)
{
    const QByteArray digest =
        name.section(QLatin1Char('/'), -1).left(ContentDigest::hexDigits).toLatin1();
    if (!ContentDigest::isDigest(digest))
        return;
    m_isSignature = name == ReleasePaths::signatureOf(digest);
    if (m_isSignature || name == ReleasePaths::content(digest))
        m_digest = digest;
}
