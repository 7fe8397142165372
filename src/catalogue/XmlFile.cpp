// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/XmlFile.h"

#include "catalogue/XmlGuard.h"
#include "host/LogL.h"
#include "host/RegularFile.h"

#include <QDomDocument>
#include <QFile>

namespace {

bool refuse(const QString& path, const QString& fault)
{
    LogL("MVThemeMgr", LogLevel::warning, "XML file [%s] is refused: %s", path.toUtf8().constData(),
         fault.toUtf8().constData());
    return false;
}

/// Reads the text and frees the bytes before the document, many times their size, is built.
bool read(const QString& path, QString& text)
{
    QFile file(path);
    if (path.isEmpty() || !RegularFile::open(file))
        return false;
    if (file.size() > XmlGuard::maxBytes)
        return refuse(path, QStringLiteral("larger than %1 bytes").arg(XmlGuard::maxBytes));
    QByteArray bytes;
    if (!RegularFile::readAll(file, XmlGuard::maxBytes, bytes))
        return false;
    // With an explicit length: otherwise decoding stops at a NUL and hides the rest.
    text = QString::fromUtf8(bytes.constData(), bytes.size());
    return true;
}

} // namespace

bool XmlFile::parse(const QString& path, QDomDocument& doc)
{
    QString text;
    if (!read(path, text))
        return false;
    if (text.contains(QChar(QChar::Null)))
        return false;
    const QString fault = XmlGuard::fault(text);
    return fault.isEmpty() ? doc.setContent(text) : refuse(path, fault);
}

void XmlFile::release(QDomElement& root, const QString& tag)
{
    root.removeChild(root.firstChildElement(tag));
}
