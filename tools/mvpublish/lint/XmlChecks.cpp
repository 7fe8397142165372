// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "lint/XmlChecks.h"

#include "catalogue/MVThemeMgr.h"
#include "lint/LintContext.h"

#include <QDomDocument>
#include <QFile>
#include <QXmlStreamReader>

bool XmlChecks::isReadable(LintContext& context, const QString& file, const QString& item)
{
    QDomDocument doc;
    const QString path = context.tree().absolute(file);
    if (ReadTree::library().checkXml(path, doc))
        return true;
    // This reader reports where it stopped, and no document can exhaust it.
    QFile in(path);
    const bool open = in.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&in);
    while (open && !reader.atEnd() && !reader.hasError())
        reader.readNext();
    const bool malformed = !open || reader.hasError();
    context.report(
        "malformed", file, malformed ? static_cast<int>(reader.lineNumber()) : 0, item,
        malformed
            ? QStringLiteral("is not XML: %1").arg(open ? reader.errorString() : in.errorString())
            : QStringLiteral("is refused by the library"),
        malformed ? QStringLiteral("put it right where the line says")
                  : QStringLiteral("it is larger than 64 MiB, nested deeper than 64 "
                                   "elements, or declares entities"));
    return false;
}
