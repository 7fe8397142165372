// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/PublishedTree.h"

QString PublishedTree::otherSize(qint64 found, qint64 expected)
{
    return QStringLiteral("has %1 bytes, but %2 in the release").arg(found).arg(expected);
}

QString PublishedTree::otherContent()
{
    return QStringLiteral("has not the content that it has in the release");
}
