// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/CatalogueFiles.h"
#include "support/TestTexts.h"

#include <QDomDocument>
#include <QStringList>

/// @name What a published document contains
/// @{
/// Returns the root element of a file.
inline QDomElement parse(const QString& file)
{
    QDomDocument doc;
    doc.setContent(CatalogueFiles::read(file));
    return doc.documentElement();
}

/// Returns the texts of the elements of one name below an element, in document order.
inline QStringList texts(const QDomElement& root, const char* tag)
{
    QStringList result;
    const QDomNodeList found = root.elementsByTagName(text(tag));
    for (int i = 0; i < found.size(); ++i)
        result.append(found.at(i).toElement().text());
    return result;
}
/// @}
