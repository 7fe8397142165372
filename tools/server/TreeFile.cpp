// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/TreeFile.h"

#ifdef Q_OS_WIN
#include "host/SystemFile.h"
#include "host/WindowsName.h"
#endif

#include <QDateTime>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

namespace {

const QString httpDate = QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'");

/// Returns the path below the folder, with a slash before every component; empty if it leads above.
QString below(const QByteArray& address)
{
    QStringList parts;
    const QStringList given = QString::fromUtf8(address.constData(), address.size())
                                  .split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& part : given) {
        if (part == QLatin1String("."))
            continue;
#ifdef Q_OS_WIN // devices, alternate streams, and names that lead to another file
        if (part != QLatin1String("..") && !WindowsName::isStorable(part))
            return QString();
#endif
        if (part != QLatin1String(".."))
            parts.append(part);
        else if (parts.isEmpty())
            return QString();
        else
            parts.removeLast();
    }
    return QLatin1Char('/') + parts.join(QLatin1Char('/'));
}

/// Returns the path with links followed, on Windows also junctions, which Qt does not follow.
QString realPath(const QString& path)
{
#ifdef Q_OS_WIN
    return SystemFile::realPath(path);
#else
    return QFileInfo(path).canonicalFilePath();
#endif
}

QDateTime parsedDate(const QByteArray& text)
{
    QDateTime date = QLocale::c().toDateTime(QString::fromLatin1(text), httpDate);
    date.setTimeSpec(Qt::UTC);
    return date;
}

} // namespace

TreeFile::TreeFile(const QString& folder, const QByteArray& address)
{
    const QString path = below(address);
    // A backslash is legal in file names here but a separator on Windows, so refuse it.
    if (path.isEmpty() || path.contains(QLatin1Char('\\')) || path.contains(QChar(QChar::Null)))
        return;
    const QFileInfo file(folder + path);
    const QString real = realPath(folder + path);
    if (!file.isFile() || !real.startsWith(realPath(folder) + QLatin1Char('/')))
        return;
    auto opened = std::make_shared<QFile>(real);
    if (!opened->open(QIODevice::ReadOnly))
        return;
    const QDateTime modified = opened->fileTime(QFileDevice::FileModificationTime).toUTC();
    m_size = opened->size();
    m_file = std::move(opened);
    m_path = path;
    m_modified = modified.toSecsSinceEpoch();
    m_entityTag = '"' + QByteArray::number(modified.toMSecsSinceEpoch(), 16) + '-'
        + QByteArray::number(m_size, 16) + '"';
    m_lastModified = QLocale::c().toString(modified, httpDate).toLatin1();
}

QByteArray TreeFile::contentType() const
{
    struct Type
    {
        const char* suffix;
        const char* name;
    };
    static const Type types[] = {
        {".xml", "application/xml"}, {".zip", "application/zip"},   {".png", "image/png"},
        {".jpg", "image/jpeg"},      {".jpeg", "image/jpeg"},       {".gif", "image/gif"},
        {".mp3", "audio/mpeg"},      {".json", "application/json"}, {".txt", "text/plain"}};
    for (const Type& type : types) {
        if (m_file->fileName().endsWith(QLatin1String(type.suffix), Qt::CaseInsensitive))
            return type.name;
    }
    return "application/octet-stream";
}

QByteArray TreeFile::cacheControl() const
{
    // A content named after its digest never changes; its signature may.
    static const QRegularExpression content(
        QStringLiteral("\\A/content/[0-9a-f]{2}/[0-9a-f]{64}\\z"));
    if (content.match(m_path).hasMatch())
        return "public, max-age=31536000, immutable";
    const bool isVersion =
        QFileInfo(m_file->fileName()).fileName().startsWith(QLatin1String("resource_version"));
    return isVersion ? "no-store" : "no-cache";
}

bool TreeFile::isKnown(const QByteArray& ifNoneMatch, const QByteArray& ifModifiedSince) const
{
    if (ifNoneMatch.isEmpty()) {
        // Any other date means another file, even an earlier one that was restored.
        const QDateTime since = parsedDate(ifModifiedSince);
        return since.isValid() && since.toSecsSinceEpoch() == m_modified;
    }
    const QList<QByteArray> tags = ifNoneMatch.split(',');
    for (const QByteArray& given : tags) {
        QByteArray tag = given.trimmed();
        if (tag.startsWith("W/"))
            tag = tag.mid(2);
        if (tag == "*" || tag == m_entityTag)
            return true;
    }
    return false;
}

bool TreeFile::isSameAs(const QByteArray& ifRange) const
{
    return ifRange.isEmpty() || ifRange == m_entityTag || ifRange == m_lastModified;
}
