// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "lint/Picture.h"

#include "host/PictureFormat.h"

#include <QFile>
#include <QImage>
#include <QImageReader>

#include <cstdlib>

namespace Picture {

namespace {

// Cells have the aspect ratio of the produced films: 16:9.
constexpr int across = 16;
constexpr int down = 9;
constexpr int narrowest = 96;
constexpr int widest = 1280;

QString sizeFault(const QSize& size)
{
    const QString text = QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    if (std::abs(size.width() * down - size.height() * across) >= across)
        return text + QStringLiteral(" is not 16 to 9");
    if (size.width() < narrowest || size.width() > widest)
        return text + QStringLiteral(" is not between 96x54 and 1280x720");
    return QString();
}

QByteArray contentOf(const QString& file)
{
    QFile in(file);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

/// Reads a GIF block by block, since the decoder plays a truncated file without complaint. giflib
/// would also skip the blocks, but keeps a record of every image: 257 MB for 60 MB of the smallest
/// images.
class GifBlocks
{
public:
    explicit GifBlocks(const QByteArray& content)
        : m_content(content)
    {
    }

    bool reachEnd()
    {
        constexpr int header = 13;
        m_at = header + colours(at(header - 3));
        while (m_at < m_content.size() && at(m_at) != trailer) {
            if (at(m_at) == extension) {
                m_at += 2;
            } else {
                constexpr int imageHeader = 10;
                m_at += imageHeader + colours(at(m_at + imageHeader - 1)) + 1;
            }
            skipData();
        }
        return m_at < m_content.size();
    }

private:
    static constexpr int trailer = 0x3b;
    static constexpr int extension = 0x21;

    int at(int position) const
    {
        return position < m_content.size() ? static_cast<unsigned char>(m_content.at(position)) : 0;
    }
    /// Returns the size in bytes of the colour table that the flags announce.
    static int colours(int flags) { return (flags & 0x80) != 0 ? 3 << ((flags & 7) + 1) : 0; }
    void skipData()
    {
        while (at(m_at) != 0)
            m_at += at(m_at) + 1;
        ++m_at;
    }

    const QByteArray& m_content;
    int m_at = 0;
};

/// Reads a JPEG marker by marker, since the decoder fills up a truncated file without complaint,
/// and libjpeg only warns while decoding every pixel. Segments are skipped: they may contain a
/// picture with its own end marker.
bool isCutJpeg(const QByteArray& content)
{
    constexpr int endMarker = 0xd9;
    const auto at = [&content](int position) {
        return position < content.size() ? static_cast<unsigned char>(content.at(position)) : 0;
    };
    int position = 2;
    while (position >= 0 && position < content.size()) {
        const int marker = at(position + 1);
        const bool isAlone = marker <= 1 || (marker >= 0xd0 && marker < endMarker);
        if (marker == endMarker)
            return false;
        if (marker == 0xff) // fill byte
            ++position;
        else
            position += isAlone ? 2 : 2 + (at(position + 2) << 8) + at(position + 3);
        position = content.indexOf('\xff', position); // skips the picture's data
    }
    return true;
}

/// Checks the size before decoding: a hostile picture could exhaust the memory.
bool begin(QImageReader& reader, Verdict& verdict)
{
    const PictureFormat::Kind kind = PictureFormat::ofFile(reader.fileName());
    reader.setAutoDetectImageFormat(false);
    reader.setFormat(PictureFormat::decoderName(kind));
    const QSize size = reader.size();
    if (!reader.canRead() || !size.isValid()) {
        verdict.broken = reader.errorString();
        return false;
    }
    verdict.oddSize = sizeFault(size);
    return verdict.oddSize.isEmpty();
}

} // namespace

Verdict thumbnail(const QString& file)
{
    Verdict verdict;
    QImageReader reader(file);
    if (!begin(reader, verdict))
        return verdict;
    if (reader.format() == "jpeg" && isCutJpeg(contentOf(file)))
        verdict.broken = QStringLiteral("the file ends in the middle");
    else if (reader.read().isNull())
        verdict.broken = reader.errorString();
    return verdict;
}

Verdict animation(const QString& file)
{
    Verdict verdict;
    QImageReader reader(file);
    if (!begin(reader, verdict))
        return verdict;
    if (reader.format() != "gif") {
        verdict.broken = QStringLiteral("it is not a GIF");
        return verdict;
    }
    const QByteArray content = contentOf(file);
    if (!GifBlocks(content).reachEnd()) {
        verdict.broken = QStringLiteral("the file ends in the middle");
        return verdict;
    }
    const int frames = reader.imageCount();
    int decoded = 0;
    while (decoded < frames && !reader.read().isNull())
        ++decoded;
    if (frames == 0 || decoded < frames)
        verdict.broken = QStringLiteral("frame %1 cannot be decoded").arg(decoded + 1);
    return verdict;
}

} // namespace Picture
