// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/PictureFormat.h"

#include "host/RegularFile.h"

#include <QFile>

#include <algorithm>
#include <iterator>

namespace {

struct Format
{
    PictureFormat::Kind kind;
    const char* decoderName;
    const char* signatures[2];
    const char* suffixes[2];
};

const Format formats[] = {
    {PictureFormat::Kind::Png, "png", {"\x89PNG\r\n\x1a\n"}, {".png"}},
    {PictureFormat::Kind::Jpeg, "jpeg", {"\xff\xd8\xff"}, {".jpg", ".jpeg"}},
    {PictureFormat::Kind::Gif, "gif", {"GIF87a", "GIF89a"}, {".gif"}},
};

template <class Predicate>
const Format* find(Predicate matches)
{
    const auto* const found = std::find_if(std::begin(formats), std::end(formats), matches);
    return found == std::end(formats) ? nullptr : found;
}

const Format* find(PictureFormat::Kind kind)
{
    return find([kind](const Format& format) { return format.kind == kind; });
}

template <class Predicate>
PictureFormat::Kind kindWhere(Predicate matches)
{
    const Format* const format = find(matches);
    return format ? format->kind : PictureFormat::Kind::None;
}

} // namespace

PictureFormat::Kind PictureFormat::ofContent(const QByteArray& beginning)
{
    return kindWhere([&beginning](const Format& format) {
        return std::any_of(
            std::begin(format.signatures), std::end(format.signatures),
            [&](const char* signature) { return signature && beginning.startsWith(signature); });
    });
}

PictureFormat::Kind PictureFormat::ofFile(const QString& path)
{
    QFile file(path);
    return RegularFile::open(file) ? ofContent(file.read(signatureBytes)) : Kind::None;
}

PictureFormat::Kind PictureFormat::ofName(const QString& name)
{
    return kindWhere([&name](const Format& format) {
        return std::any_of(
            std::begin(format.suffixes), std::end(format.suffixes), [&](const char* suffix) {
                return suffix && name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
            });
    });
}

QStringList PictureFormat::suffixes(Kind kind)
{
    const Format* const format = find(kind);
    QStringList all;
    if (!format)
        return all;
    for (const char* suffix : format->suffixes) {
        if (suffix)
            all << QLatin1String(suffix);
    }
    return all;
}

QByteArray PictureFormat::decoderName(Kind kind)
{
    const Format* const format = find(kind);
    return format ? QByteArray(format->decoderName) : QByteArray();
}
