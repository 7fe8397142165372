// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/Editions.h"

#include <algorithm>

namespace Editions {

namespace {

Edition standardLike(const QString& name, const QString& versionFile)
{
    return {name, versionFile, QStringLiteral("resource_display.xml"), QStringLiteral("standard")};
}

Edition affiliate(const QString& name, const QString& audience)
{
    return {name, QStringLiteral("resource_version_%1_v2.xml").arg(audience),
            QStringLiteral("resource_display_%1.xml").arg(audience), audience};
}

} // namespace

const QVector<Edition>& all()
{
    static const QVector<Edition> editions{
        standardLike(QStringLiteral("standard"), QStringLiteral("resource_version_v3.xml")),
        affiliate(QStringLiteral("1"), QStringLiteral("aff")),
        standardLike(QStringLiteral("2"), QStringLiteral("resource_version_v2.xml")),
        affiliate(QStringLiteral("3"), QStringLiteral("aff_de")),
        affiliate(QStringLiteral("4"), QStringLiteral("aff_de")),
        affiliate(QStringLiteral("5"), QStringLiteral("aff")),
    };
    return editions;
}

const Edition* byName(const QString& name)
{
    const auto found = std::find_if(all().cbegin(), all().cend(), [&name](const Edition& edition) {
        return edition.name == name;
    });
    return found == all().cend() ? nullptr : &*found;
}

QStringList audiences()
{
    QStringList audiences;
    for (const Edition& edition : all()) {
        if (!audiences.contains(edition.audience))
            audiences.append(edition.audience);
    }
    return audiences;
}

} // namespace Editions
