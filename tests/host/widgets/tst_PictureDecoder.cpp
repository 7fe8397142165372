// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/PictureDecoder.h"
#include "host/widgets/TestImages.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QApplication>
#include <QBuffer>
#include <QMovie>

/// Tests which pictures are decoded, and at which size.
class tst_PictureDecoder : public QObject
{
    Q_OBJECT

private slots:
    void gifCountsByItsCanvas_data();
    void gifCountsByItsCanvas();
    void otherPicturesCountByTheirSize_data();
    void otherPicturesCountByTheirSize();
    void contentDecidesNotTheName_data();
    void contentDecidesNotTheName();
    void otherFormatsAreNotDecoded_data();
    void otherFormatsAreNotDecoded();
    void damagedPicturesAreNull_data();
    void damagedPicturesAreNull();
    void picturesFitTheirPlace_data();
    void picturesFitTheirPlace();
    void pipesAreNotOpened();
};

namespace {

QByteArray number(int value)
{
    return QByteArray(1, char(value & 0xff)) + QByteArray(1, char(value >> 8));
}

/// Returns a GIF with one small image on a canvas.
QByteArray gif(int width, int height, const QByteArray& version = "GIF89a")
{
    const QByteArray image = "," + QByteArray(4, '\0') + number(1) + number(1) + '\0'
        + QByteArray("\x02\x02\x44\x01\x00", 5);
    return version + number(width) + number(height) + "\x80" + QByteArray(2 + 6, '\0') + image
        + ";";
}

QByteArray encoded(const QSize& size, const char* format,
                   QImage::Format pixels = QImage::Format_RGB32)
{
    QImage image(size, pixels);
    image.fill(1);
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    return QTest::qVerify(image.save(&file, format), "save", format, __FILE__, __LINE__)
        ? bytes
        : QByteArray();
}

QString stored(const QByteArray& content, const char* name)
{
    const QString path = TestHome::path() + QLatin1Char('/') + QLatin1String(name);
    CatalogueFiles::write(path, content);
    return path;
}

/// Reads the size with data in front of the picture; the device must not move.
QSize announced(const QByteArray& image)
{
    QByteArray bytes = "before" + image;
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    constexpr int start = 6;
    file.seek(start);
    const QSize size = PictureDecoder::announcedSize(file);
    return QTest::qVerify(file.pos() == start, "pos", "moved", __FILE__, __LINE__) ? size : QSize();
}

bool isPlayable(const QString& path)
{
    QMovie movie(path);
    return PictureDecoder::prepare(movie);
}

} // namespace

void tst_PictureDecoder::gifCountsByItsCanvas_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("decoded");
    QTest::newRow("one pixel") << 1 << 1 << true;
    QTest::newRow("16 Mi") << 4096 << 4096 << true;
    QTest::newRow("a column more") << 4097 << 4096 << false;
    QTest::newRow("the largest") << 0xffff << 0xffff << false;
    QTest::newRow("no width") << 0 << 1 << false;
    QTest::newRow("no height") << 1 << 0 << false;
}

void tst_PictureDecoder::gifCountsByItsCanvas()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, decoded);
    for (const char* version : {"GIF87a", "GIF89a"}) {
        const QByteArray content = gif(width, height, version);
        QCOMPARE(announced(content), decoded ? QSize(width, height) : QSize());
        const QString path = stored(content, "canvas.gif");
        QCOMPARE(PictureDecoder::announcedSize(path).isValid(), decoded);
        QCOMPARE(isPlayable(path), decoded);
    }
}

void tst_PictureDecoder::otherPicturesCountByTheirSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("decoded");
    QTest::newRow("small") << QSize(3, 2) << true;
    QTest::newRow("16 Mi") << QSize(4096, 4096) << true;
    QTest::newRow("a column more") << QSize(4097, 4096) << false;
}

void tst_PictureDecoder::otherPicturesCountByTheirSize()
{
    QFETCH(QSize, size);
    QFETCH(bool, decoded);
    const QByteArray png = encoded(size, "PNG", QImage::Format_Mono);
    QCOMPARE(announced(png), decoded ? size : QSize());
    QCOMPARE(PictureDecoder::read(stored(png, "size.png")).isNull(), !decoded);
    const QByteArray jpeg = encoded(size, "JPEG", QImage::Format_Grayscale8);
    QCOMPARE(announced(jpeg), decoded ? size : QSize());
    QCOMPARE(PictureDecoder::read(stored(jpeg, "size.jpg"), QSize(8, 8)).isNull(), !decoded);
}

void tst_PictureDecoder::contentDecidesNotTheName_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("PNG") << encoded(QSize(3, 2), "PNG");
    QTest::newRow("JPEG") << encoded(QSize(3, 2), "JPEG");
    QTest::newRow("GIF") << gif(3, 2);
}

void tst_PictureDecoder::contentDecidesNotTheName()
{
    QFETCH(QByteArray, content);
    for (const char* name : {"picture.png", "picture.jpg", "picture.gif", "picture.svg"}) {
        const QString path = stored(content, name);
        QCOMPARE(PictureDecoder::read(path).size(), QSize(3, 2));
        QVERIFY(isPlayable(path));
    }
}

void tst_PictureDecoder::otherFormatsAreNotDecoded_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("BMP") << encoded(QSize(3, 2), "BMP");
    QTest::newRow("PPM") << encoded(QSize(3, 2), "PPM");
    QTest::newRow("SVG") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='3' "
                                       "height='2'><rect width='3' height='2'/></svg>");
}

void tst_PictureDecoder::otherFormatsAreNotDecoded()
{
    QFETCH(QByteArray, content);
    QVERIFY(!content.isEmpty());
    for (const char* name : {"other.png", "other.gif"}) {
        const QString path = stored(content, name);
        QVERIFY(PictureDecoder::read(path).isNull());
        QVERIFY(PictureDecoder::read(path, QSize(8, 8)).isNull());
        QVERIFY(!PictureDecoder::announcedSize(path).isValid());
        QVERIFY(!isPlayable(path));
    }
}

void tst_PictureDecoder::damagedPicturesAreNull_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("no image");
    QTest::newRow("part of a signature") << QByteArray("GIF8");
    QTest::newRow("GIF without its canvas") << QByteArray("GIF89a\1\0\1", 9);
    QTest::newRow("PNG without a header") << encoded(QSize(3, 2), "PNG").left(12);
}

void tst_PictureDecoder::damagedPicturesAreNull()
{
    QFETCH(QByteArray, content);
    const QString path = stored(content, "damaged.png");
    QVERIFY(PictureDecoder::read(path).isNull());
    QVERIFY(PictureDecoder::read(path, QSize(8, 8)).isNull());
    QVERIFY(!announced(content).isValid());
    QVERIFY(!isPlayable(path));
}

void tst_PictureDecoder::picturesFitTheirPlace_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("place");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("smaller place") << QSize(400, 300) << QSize(40, 40) << QSize(40, 30);
    QTest::newRow("larger place") << QSize(20, 15) << QSize(80, 80) << QSize(80, 60);
    QTest::newRow("same size") << QSize(40, 30) << QSize(40, 30) << QSize(40, 30);
    QTest::newRow("only one side is larger") << QSize(400, 10) << QSize(40, 40) << QSize(40, 1);
    QTest::newRow("thinner than a pixel") << QSize(1000, 1) << QSize(40, 40) << QSize(40, 1);
}

void tst_PictureDecoder::picturesFitTheirPlace()
{
    QFETCH(QSize, size);
    QFETCH(QSize, place);
    QFETCH(QSize, shown);
    for (const char* format : {"PNG", "JPEG"})
        QCOMPARE(PictureDecoder::read(stored(encoded(size, format), "fit"), place).size(), shown);
    QCOMPARE(PictureDecoder::read(stored(gif(size.width(), size.height()), "fit"), place).size(),
             shown);
}

void tst_PictureDecoder::pipesAreNotOpened()
{
    if (!UnusualFiles::hasPipes)
        QSKIP("This system's folders contain no pipes.");
    const QString pipe = TestHome::path() + QStringLiteral("/pipe.png");
    UnusualFiles::makePipe(pipe);
    QVERIFY(PictureDecoder::read(pipe).isNull()); // it must return
    QVERIFY(!PictureDecoder::announcedSize(pipe).isValid());
    QVERIFY(!isPlayable(pipe));
}

MV_WIDGET_TEST_MAIN(tst_PictureDecoder)
#include "tst_PictureDecoder.moc"
