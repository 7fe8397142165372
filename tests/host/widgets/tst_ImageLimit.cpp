#include "host/widgets/ImageLimit.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>

/// What is too large to decode, by what a file announces.
class tst_ImageLimit : public QObject
{
    Q_OBJECT

private slots:
    void aGifCountsByItsCanvas_data();
    void aGifCountsByItsCanvas();
    void otherImagesCountByTheirSize_data();
    void otherImagesCountByTheirSize();
    void whatIsNoImageIsLeftToTheDecoder();
};

namespace {

QByteArray number(int value)
{
    return QByteArray(1, char(value & 0xff)) + QByteArray(1, char(value >> 8));
}

/// Asks with something before the image, and expects to find the device where it was.
bool admits(const QByteArray& image)
{
    QByteArray bytes = "before" + image;
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    constexpr int start = 6;
    file.seek(start);
    const bool admitted = ImageLimit::admits(file);
    return QTest::qVerify(file.pos() == start, "pos", "moved", __FILE__, __LINE__) && admitted;
}

} // namespace

void tst_ImageLimit::aGifCountsByItsCanvas_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("admitted");
    QTest::newRow("one pixel") << 1 << 1 << true;
    QTest::newRow("64 Mi") << 8192 << 8192 << true;
    QTest::newRow("a column more") << 8193 << 8192 << false;
    QTest::newRow("the largest") << 0xffff << 0xffff << false;
    QTest::newRow("no width") << 0 << 1 << false;
    QTest::newRow("no height") << 1 << 0 << false;
}

void tst_ImageLimit::aGifCountsByItsCanvas()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, admitted);
    // Its one image is small.
    const QByteArray image = "," + QByteArray(4, '\0') + number(1) + number(1) + '\0'
        + QByteArray("\x02\x02\x44\x01\x00", 5);
    const QByteArray head = number(width) + number(height) + "\x80" + QByteArray(2 + 6, '\0');
    QCOMPARE(admits("GIF89a" + head + image + ";"), admitted);
    QCOMPARE(admits("GIF87a" + head + image + ";"), admitted);
}

void tst_ImageLimit::otherImagesCountByTheirSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("admitted");
    QTest::newRow("small") << QSize(3, 2) << true;
    QTest::newRow("64 Mi") << QSize(8192, 8192) << true;
    QTest::newRow("a column more") << QSize(8193, 8192) << false;
}

void tst_ImageLimit::otherImagesCountByTheirSize()
{
    QFETCH(QSize, size);
    QFETCH(bool, admitted);
    QImage image(size, QImage::Format_Mono);
    image.fill(1);
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    QVERIFY(image.save(&file, "PNG"));
    QCOMPARE(admits(bytes), admitted);
}

void tst_ImageLimit::whatIsNoImageIsLeftToTheDecoder()
{
    QVERIFY(admits("no image"));
    QVERIFY(admits(QByteArray()));
    QVERIFY(admits("GIF8"));
}

MV_WIDGET_TEST_MAIN(tst_ImageLimit)
#include "tst_ImageLimit.moc"
