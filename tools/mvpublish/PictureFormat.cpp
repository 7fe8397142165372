#include "PictureFormat.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QVector>

#include <algorithm>

namespace PictureFormat {

namespace {

struct Format
{
    QString name;
    QByteArray mark; ///< with which every file begins
    QStringList suffixes;
};

const QVector<Format>& formats()
{
    static const QVector<Format> known{
        {QStringLiteral("PNG"), QByteArrayLiteral("\x89PNG\r\n\x1a\n"), {QStringLiteral(".png")}},
        {QStringLiteral("JPEG"),
         QByteArrayLiteral("\xff\xd8\xff"),
         {QStringLiteral(".jpg"), QStringLiteral(".jpeg")}},
        {QStringLiteral("GIF"), QByteArrayLiteral("GIF8"), {QStringLiteral(".gif")}},
    };
    return known;
}

/// Null for a file that is none of them.
const Format* formatOf(const QString& file)
{
    constexpr int longestMark = 8;
    QFile in(file);
    const QByteArray begin = in.open(QIODevice::ReadOnly) ? in.read(longestMark) : QByteArray();
    const auto found =
        std::find_if(formats().cbegin(), formats().cend(),
                     [&begin](const Format& format) { return begin.startsWith(format.mark); });
    return found == formats().cend() ? nullptr : &*found;
}

bool endsInSuffix(const QString& name, const Format& format)
{
    return std::any_of(
        format.suffixes.cbegin(), format.suffixes.cend(),
        [&name](const QString& suffix) { return name.endsWith(suffix, Qt::CaseInsensitive); });
}

} // namespace

QString fault(const QString& file)
{
    const Format* const format = formatOf(file);
    if (!format)
        return QStringLiteral("is no PNG, JPEG or GIF, and clients show no other pictures");
    if (endsInSuffix(file, *format))
        return QString();
    return QStringLiteral("is a %1, but its name does not end in %2")
        .arg(format->name, format->suffixes.join(QStringLiteral(" or ")));
}

bool isPictureName(const QString& name)
{
    return std::any_of(formats().cbegin(), formats().cend(),
                       [&name](const Format& format) { return endsInSuffix(name, format); });
}

bool isGif(const QString& file)
{
    const Format* const format = formatOf(file);
    return format && format->name == QLatin1String("GIF");
}

} // namespace PictureFormat
