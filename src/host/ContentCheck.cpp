// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/ContentCheck.h"

#include "host/PictureFormat.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>
#include <iterator>

namespace {

/// Signatures of a ZIP archive with entries, and of an empty one.
const char* const archiveSignatures[] = {"PK\x03\x04", "PK\x05\x06"};

bool isArchiveBeginning(const QByteArray& beginning)
{
    return std::any_of(std::begin(archiveSignatures), std::end(archiveSignatures),
                       [&](const char* signature) { return beginning.startsWith(signature); });
}

/// Returns the length of what precedes a page's document type or root element: a byte order mark,
/// blanks, comments and an XML declaration.
QByteArray withoutProlog(QByteArray text)
{
    if (text.startsWith("\xEF\xBB\xBF"))
        text.remove(0, 3);
    for (;;) {
        text = text.trimmed();
        const bool isComment = text.startsWith("<!--");
        if (!isComment && !text.startsWith("<?"))
            return text;
        const char* const end = isComment ? "-->" : "?>";
        const auto found = text.indexOf(end);
        if (found < 0)
            return {};
        text.remove(0, found + int(qstrlen(end)));
    }
}

QString xmlFault(QFile& file)
{
    QXmlStreamReader reader(&file);
    // A device that fails never reports its end.
    while (!reader.atEnd() && !reader.hasError())
        reader.readNext();
    return reader.hasError() ? QStringLiteral("no well-formed XML (line %1: %2)")
                                   .arg(QString::number(reader.lineNumber()), reader.errorString())
                             : QString();
}

QString signatureFault(const QByteArray& beginning, bool isPicture)
{
    if (isPicture)
        return PictureFormat::ofContent(beginning) == PictureFormat::Kind::None
            ? QStringLiteral("no PNG, JPEG or GIF picture")
            : QString();
    return isArchiveBeginning(beginning) ? QString() : QStringLiteral("no ZIP archive");
}

} // namespace

bool ContentCheck::isPage(const QByteArray& beginning)
{
    const QByteArray text = withoutProlog(beginning);
    for (const char* begin : {"<!doctype html", "<html"}) {
        const int length = int(qstrlen(begin));
        // Compares in place: few files begin like this, and every file is asked.
        if (qstrnicmp(text.constData(), begin, uint(length)) == 0
            && (text.size() == length || !isalnum(text.at(length))))
            return true;
    }
    return false;
}

bool ContentCheck::isPageName(const QString& name)
{
    const QString suffix = QFileInfo(name).suffix().toLower();
    return suffix == QLatin1String("html") || suffix == QLatin1String("htm")
        || suffix == QLatin1String("xhtml");
}

QString ContentCheck::fault(QFile& file, const QString& name, bool* isUnreadable)
{
    const QString suffix = QFileInfo(name).suffix().toLower();
    const bool isPicture = PictureFormat::isPictureName(name);
    const bool isXml = suffix == QLatin1String("xml");
    const bool isArchive = suffix == QLatin1String("zip");
    if (!isPicture && !isXml && !isArchive)
        return {};
    const QString fault = isXml
        ? xmlFault(file)
        : signatureFault(file.read(PictureFormat::signatureBytes), isPicture);
    const bool hasFailed = file.error() != QFileDevice::NoError;
    if (isUnreadable)
        *isUnreadable = hasFailed;
    return hasFailed ? QStringLiteral("it cannot be read: %1").arg(file.errorString()) : fault;
}
