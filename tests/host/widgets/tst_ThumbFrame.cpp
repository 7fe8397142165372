// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/TestImages.h"
#include "host/widgets/ThumbFrame.h"
#include "support/CatalogueFiles.h"
#include "support/ScaledRuns.h"

#include <QApplication>
#include <QProcess>

namespace {

const QColor red(255, 0, 0);
const QColor blue(0, 0, 255);
const QColor white(255, 255, 255);

/// A frame on a white background.
class Frame : public ThumbFrame
{
public:
    explicit Frame(const QSize& size)
    {
        setPalette(QPalette(white, white));
        resize(size);
    }
    QImage paint() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }
    int paints() const { return m_paints; }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++m_paints;
        ThumbFrame::paintEvent(event);
    }

private:
    int m_paints = 0;
};

} // namespace

/// Tests where and how the image is painted.
class tst_ThumbFrame : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { qApp->setStyleSheet(QString()); }

    void startsWithoutAnImage();
    void placeholderIsPaintedAtOnce();
    void remembersThePath();
    void fillsTheContents_data();
    void fillsTheContents();
    void respectsContentsMargins();
    void staysInsideItsFrame();
    void respectsAStyleSheetBorder();
    void paintsNothingWithoutRoom();
    void scalesSmoothly_data();
    void scalesSmoothly();
    void keepsTransparency();
    void obeysTheOrientationOfAPhotograph();
    void anotherPathShowsAnotherImage();
    void noPathShowsNothing();
    void aFileThatIsNotAnImageStaysEmpty_data();
    void aFileThatIsNotAnImageStaysEmpty();
    void usesTheDevicePixels();
    void usesTheDevicePixels_child();
};

void tst_ThumbFrame::startsWithoutAnImage()
{
    Frame frame(QSize(40, 40));
    QCOMPARE(frame.imagePath(), QString());
    QVERIFY(frame.isEmpty());
    QVERIFY(!TestImages::areaOf(frame.paint(), red).isValid());
    QVERIFY(frame.isEmpty());
}

void tst_ThumbFrame::placeholderIsPaintedAtOnce()
{
    Frame frame({40, 30});
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QTRY_VERIFY(frame.paints() > 0);
    QCoreApplication::processEvents();
    const int before = frame.paints();
    frame.setPlaceholderShown(true);
    QTRY_VERIFY(frame.paints() > before);
}

void tst_ThumbFrame::remembersThePath()
{
    Frame frame(QSize(40, 40));
    const QString path = TestHome::path() + QStringLiteral("/none.png");
    frame.setImagePath(path);
    QCOMPARE(frame.imagePath(), path);
    frame.setIsEmpty(true);
    QCOMPARE(frame.imagePath(), path);
}

void tst_ThumbFrame::fillsTheContents_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<QRect>("area");
    QTest::newRow("same size") << QSize(40, 30) << QSize(40, 30) << QRect(0, 0, 40, 30);
    QTest::newRow("smaller frame") << QSize(80, 60) << QSize(40, 30) << QRect(0, 0, 40, 30);
    QTest::newRow("larger frame") << QSize(20, 15) << QSize(40, 30) << QRect(0, 0, 40, 30);
    QTest::newRow("wide image") << QSize(80, 20) << QSize(40, 30) << QRect(0, 10, 40, 10);
    QTest::newRow("tall image") << QSize(20, 60) << QSize(40, 30) << QRect(15, 0, 10, 30);
    QTest::newRow("one pixel") << QSize(1, 1) << QSize(40, 30) << QRect(5, 0, 30, 30);
    QTest::newRow("very wide image") << QSize(400, 1) << QSize(40, 31) << QRect(0, 15, 40, 1);
}

void tst_ThumbFrame::fillsTheContents()
{
    QFETCH(QSize, image);
    QFETCH(QSize, frame);
    QFETCH(QRect, area);
    Frame thumb(frame);
    thumb.setImagePath(TestImages::write(QStringLiteral("fill.png"), image, red));
    const QImage painted = thumb.paint();
    QCOMPARE(painted.size(), frame);
    QCOMPARE(TestImages::areaOf(painted, red), area);
    if (area.y() > 0)
        QCOMPARE(painted.pixelColor(0, 0), white);
    QVERIFY(!thumb.isEmpty());
}

void tst_ThumbFrame::respectsContentsMargins()
{
    Frame frame(QSize(60, 60));
    frame.setContentsMargins(5, 10, 15, 20);
    frame.setImagePath(TestImages::write(QStringLiteral("a.png"), QSize(40, 30), red));
    QCOMPARE(TestImages::areaOf(frame.paint(), red), QRect(5, 10, 40, 30));
}

void tst_ThumbFrame::staysInsideItsFrame()
{
    Frame frame(QSize(60, 60));
    frame.setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
    frame.setLineWidth(4);
    QPalette palette = frame.palette();
    palette.setColor(QPalette::WindowText, blue);
    frame.setPalette(palette);
    frame.setImagePath(TestImages::write(QStringLiteral("a.png"), QSize(10, 10), red));
    const QImage painted = frame.paint();
    QCOMPARE(TestImages::areaOf(painted, red), QRect(4, 4, 52, 52));
    QCOMPARE(TestImages::areaOf(painted, blue), QRect(0, 0, 60, 60));
}

void tst_ThumbFrame::respectsAStyleSheetBorder()
{
    qApp->setStyleSheet(QStringLiteral("ThumbFrame { border: 3px solid #0000ff; padding: 2px;"
                                       " background: white; }"));
    Frame frame(QSize(50, 40));
    frame.setImagePath(TestImages::write(QStringLiteral("a.png"), QSize(80, 60), red));
    const QImage painted = frame.paint();
    QCOMPARE(TestImages::areaOf(painted, red), QRect(5, 5, 40, 30));
    QCOMPARE(TestImages::areaOf(painted, blue), QRect(0, 0, 50, 40));
    QCOMPARE(painted.pixelColor(3, 20), white);
}

void tst_ThumbFrame::paintsNothingWithoutRoom()
{
    Frame frame(QSize(20, 20));
    frame.setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
    frame.setLineWidth(10);
    frame.setImagePath(TestImages::write(QStringLiteral("a.png"), QSize(40, 30), red));
    QVERIFY(!TestImages::areaOf(frame.paint(), red).isValid());
    QVERIFY(frame.isEmpty());
    frame.setLineWidth(0);
    QCOMPARE(TestImages::areaOf(frame.paint(), red), QRect(0, 3, 20, 15));
}

void tst_ThumbFrame::scalesSmoothly_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("down") << QSize(30, 30);
    QTest::newRow("up") << QSize(170, 170);
}

void tst_ThumbFrame::scalesSmoothly()
{
    QFETCH(QSize, size);
    // A chessboard of single pixels: only smooth scaling turns it grey.
    QImage board(60, 60, QImage::Format_RGB32);
    for (int y = 0; y < board.height(); ++y) {
        for (int x = 0; x < board.width(); ++x)
            board.setPixelColor(x, y, (x + y) % 2 ? Qt::white : Qt::black);
    }
    const QString path = TestHome::path() + QStringLiteral("/board.png");
    QVERIFY(board.save(path));
    Frame frame(size);
    frame.setImagePath(path);
    const QImage painted = frame.paint();
    int grey = 0;
    for (int x = 0; x < painted.width(); ++x) {
        const int level = qGray(painted.pixel(x, painted.height() / 2));
        grey += level > 40 && level < 215;
    }
    QVERIFY2(grey > painted.width() / 2, QByteArray::number(grey).constData());
}

void tst_ThumbFrame::keepsTransparency()
{
    QImage image(20, 20, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setPixelColor(10, 10, red);
    const QString path = TestHome::path() + QStringLiteral("/transparent.png");
    QVERIFY(image.save(path));
    Frame frame(image.size());
    frame.setImagePath(path);
    const QImage painted = frame.paint();
    QCOMPARE(painted.pixelColor(0, 0), white);
    QCOMPARE(painted.pixelColor(10, 10), red);
}

void tst_ThumbFrame::obeysTheOrientationOfAPhotograph()
{
    const QString path = TestImages::write(QStringLiteral("photo.jpg"), QSize(40, 20), red);
    // An EXIF segment after the start marker: rotate by 90 degrees.
    const QByteArray exif = QByteArray::fromHex("ffe10022"
                                                "457869660000"
                                                "4d4d002a00000008"
                                                "0001"
                                                "0112000300000001"
                                                "00060000"
                                                "00000000");
    QByteArray content = CatalogueFiles::read(path);
    content.insert(2, exif);
    CatalogueFiles::write(path, content);
    Frame frame(QSize(40, 40));
    frame.setImagePath(path);
    const QImage painted = frame.paint();
    QCOMPARE(painted.pixelColor(5, 20), white);
    QVERIFY(painted.pixelColor(20, 2).green() < 20);
    QVERIFY(painted.pixelColor(20, 37).green() < 20);
}

void tst_ThumbFrame::anotherPathShowsAnotherImage()
{
    Frame frame(QSize(40, 40));
    frame.setImagePath(TestImages::write(QStringLiteral("a.png"), QSize(10, 10), red));
    frame.paint();
    frame.setImagePath(TestImages::write(QStringLiteral("b.png"), QSize(10, 10), blue));
    QVERIFY(frame.isEmpty());
    QCOMPARE(TestImages::areaOf(frame.paint(), blue), QRect(0, 0, 40, 40));
    QVERIFY(!frame.isEmpty());
}

void tst_ThumbFrame::noPathShowsNothing()
{
    Frame frame(QSize(40, 40));
    frame.setImagePath(TestImages::write(QStringLiteral("a.png"), QSize(10, 10), red));
    frame.paint();
    frame.setImagePath(QString());
    QVERIFY(frame.isEmpty());
    QVERIFY(!TestImages::areaOf(frame.paint(), red).isValid());
    QVERIFY(frame.isEmpty());
}

void tst_ThumbFrame::aFileThatIsNotAnImageStaysEmpty_data()
{
    QTest::addColumn<QString>("path");
    const QString folder = TestHome::path() + QLatin1Char('/');
    const QByteArray png =
        CatalogueFiles::read(TestImages::write(QStringLiteral("a.png"), QSize(50, 50), red));
    const auto row = [&](const char* name, const QByteArray& content) {
        const QString path = folder + QLatin1String(name) + QStringLiteral(".png");
        CatalogueFiles::write(path, content);
        QTest::newRow(name) << path;
    };
    QTest::newRow("missing") << folder + QStringLiteral("none.png");
    QTest::newRow("folder") << TestHome::path();
    row("no bytes", QByteArray());
    row("text", "This is not an image.\n");
    row("signature only", png.left(8));
    row("header only", png.left(33));
    row("cut in the middle", png.left(png.size() / 2));
}

void tst_ThumbFrame::aFileThatIsNotAnImageStaysEmpty()
{
    QFETCH(QString, path);
    Frame frame(QSize(40, 40));
    frame.setImagePath(path);
    const QImage painted = frame.paint();
    QVERIFY(frame.isEmpty());
    QCOMPARE(TestImages::areaOf(painted, white), QRect(0, 0, 40, 40));
    QVERIFY(!TestImages::areaOf(painted, red).isValid());
}

/// The screen scale is fixed when the program starts, so the test runs in a separate process.
void tst_ThumbFrame::usesTheDevicePixels()
{
    QProcess child;
    child.setProcessChannelMode(QProcess::MergedChannels);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    ScaledRuns::setScale(environment, QStringLiteral("2"));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("usesTheDevicePixels_child")});
    QVERIFY(child.waitForFinished(60000));
    const QByteArray output = child.readAll();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0,
             output.constData());
    QVERIFY2(output.contains("PASS   : tst_ThumbFrame::usesTheDevicePixels_child()"),
             output.constData());
}

void tst_ThumbFrame::usesTheDevicePixels_child()
{
    if (qgetenv("QT_SCALE_FACTOR") != "2")
        QSKIP("run by usesTheDevicePixels()");
    Frame frame(QSize(40, 30));
    QCOMPARE(frame.devicePixelRatioF(), 2.0);
    // Stripes as wide as the frame's device pixels stay sharp.
    QImage stripes(80, 60, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y) {
        for (int x = 0; x < stripes.width(); ++x)
            stripes.setPixelColor(x, y, x % 2 ? red : blue);
    }
    const QString path = TestHome::path() + QStringLiteral("/stripes.png");
    QVERIFY(stripes.save(path));
    frame.setImagePath(path);
    const QImage painted = frame.paint();
    QCOMPARE(painted.size(), QSize(80, 60));
    QCOMPARE(TestImages::areaOf(painted, blue), QRect(0, 0, 79, 60));
    QCOMPARE(TestImages::areaOf(painted, red), QRect(1, 0, 79, 60));
    for (int x = 0; x < painted.width(); ++x)
        QCOMPARE(painted.pixelColor(x, 30), x % 2 ? red : blue);
}

int main(int argc, char** argv)
{
    const TestHome home;
    ScaledRuns::enter();
    const TestApplication<QApplication> application(argc, argv);
    tst_ThumbFrame test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ThumbFrame.moc"
