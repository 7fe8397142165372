// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "host/widgets/CountingFrame.h"
#include "host/widgets/GatedPng.h"
#include "host/widgets/PictureLoader.h"
#include "host/widgets/TestImages.h"
#include "support/CatalogueFiles.h"

#include <QApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QPixmapCache>
#include <QThread>

#include <memory>
#include <vector>

Q_IMPORT_PLUGIN(GatedPngPlugin)

namespace {

const QColor red(255, 0, 0);
const QColor blue(0, 0, 255);
const QColor white(255, 255, 255);

constexpr QSize usualSize(40, 40);
constexpr int moreThanThreads = 12;

} // namespace

/// A shown frame on a white background.
class Frame : public CountingFrame
{
public:
    explicit Frame(const QString& path)
    {
        setPalette(QPalette(white, white));
        resize(usualSize);
        setImagePath(path);
        show();
    }
};

namespace {

/// The events that a frame meets while its picture is waiting.
using Action = void (*)(std::unique_ptr<Frame>&);

QColor middle(ThumbFrame& frame)
{
    const QImage painted = frame.grab().toImage();
    return painted.pixelColor(painted.rect().center());
}

/// Writes a picture; all have the same length.
QString picture(const QString& name, const QColor& colour = red)
{
    constexpr int length = 512;
    const QString path = TestImages::write(name + QStringLiteral(".png"), QSize(30, 30), colour);
    if (!QFile::resize(path, length))
        qFatal("cannot resize %s", qPrintable(path));
    return path;
}

/// Replaces a file by another picture in a way that its length and time do not show.
void replaceUnnoticed(const QString& path, const QColor& colour)
{
    const QDateTime time = QFileInfo(path).lastModified();
    picture(QFileInfo(path).baseName(), colour);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

} // namespace

Q_DECLARE_METATYPE(Action)

/// Tests pictures that are decoded by other threads.
class tst_ThumbFrameBackground : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void thePictureArrivesByItself();
    void theGuiThreadDoesNotDecode();
    void aCachedPictureIsPaintedAtOnce();
    void theSamePictureIsDecodedOnce();
    void aRepaintRequestsNothing();
    void aPreviousSizeIsShownMeanwhile();
    void previousContentIsShownMeanwhile();
    void anotherPathShowsNothingMeanwhile();
    void theFrameMayGoWhileItsPictureIsDecoded();
    void anotherPathReplacesTheOneBeingDecoded();
    void anotherSizeReplacesTheOneBeingDecoded();
    void aReplacedFileIsReadAgain();
    void aFileThatNobodyWantsIsNotRead_data();
    void aFileThatNobodyWantsIsNotRead();
    void aHiddenFrameRequestsItAgainWhenShown();
    void theLatestAreDecodedFirst();
    void aDamagedFileIsTriedOnce();
    void aMissingFileEndsThePreviousPicture();

private:
    /// Occupies every thread of the loader with pictures at the gate.
    void occupyThreads();

    std::vector<std::unique_ptr<Frame>> m_occupying;
};

void tst_ThumbFrameBackground::init()
{
    hostSettings().decodeInBackground = true;
    QPixmapCache::clear();
    GatedPng::reset();
}

void tst_ThumbFrameBackground::cleanup()
{
    GatedPng::open();
    m_occupying.clear();
    QTRY_VERIFY(PictureLoader::isIdle());
}

void tst_ThumbFrameBackground::occupyThreads()
{
    GatedPng::close();
    for (int i = 0; i < moreThanThreads; ++i)
        m_occupying.push_back(std::make_unique<Frame>(picture(QString::number(i))));
    for (const auto& frame : m_occupying)
        QTRY_VERIFY(frame->paints > 0);
    QTRY_VERIFY(!GatedPng::begun().isEmpty());
}

void tst_ThumbFrameBackground::thePictureArrivesByItself()
{
    GatedPng::close();
    Frame frame(picture(QStringLiteral("a")));
    QTRY_VERIFY(frame.paints > 0);
    QCOMPARE(middle(frame), white);
    QVERIFY(frame.isEmpty());
    QVERIFY(!PictureLoader::isIdle());
    const int before = frame.paints;
    GatedPng::open();
    QTRY_VERIFY(!frame.isEmpty());
    QTRY_VERIFY(frame.paints > before);
    QCOMPARE(middle(frame), red);
    QCOMPARE(GatedPng::begun(), QStringList{QStringLiteral("a")});
    QVERIFY(PictureLoader::isIdle());
}

void tst_ThumbFrameBackground::theGuiThreadDoesNotDecode()
{
    GatedPng::close();
    Frame frame(picture(QStringLiteral("a")));
    QTRY_COMPARE(GatedPng::begun().size(), 1);
    frame.update();
    const int before = frame.paints;
    QTRY_VERIFY(frame.paints > before); // the event loop runs although the decoding does not end
    QVERIFY(frame.isEmpty());
    GatedPng::open();
    QTRY_VERIFY(!frame.isEmpty());
    QVERIFY(!GatedPng::wasUsedBy(QThread::currentThread()));

    hostSettings().decodeInBackground = false;
    frame.resize(50, 50);
    middle(frame);
    QVERIFY(GatedPng::wasUsedBy(QThread::currentThread()));
}

void tst_ThumbFrameBackground::aCachedPictureIsPaintedAtOnce()
{
    const QString path = picture(QStringLiteral("a"));
    Frame first(path);
    QTRY_VERIFY(!first.isEmpty());
    Frame second(path);
    QCOMPARE(middle(second), red);
    QVERIFY(PictureLoader::isIdle());
    QCOMPARE(GatedPng::begun().size(), 1);
}

void tst_ThumbFrameBackground::theSamePictureIsDecodedOnce()
{
    occupyThreads();
    const QString path = picture(QStringLiteral("shared"));
    std::vector<std::unique_ptr<Frame>> frames;
    for (int i = 0; i < 5; ++i)
        frames.push_back(std::make_unique<Frame>(path));
    for (const auto& frame : frames)
        QTRY_VERIFY(frame->paints > 0);
    frames.erase(frames.begin()); // the others keep the request
    GatedPng::open();
    for (const auto& frame : frames) {
        QTRY_VERIFY(!frame->isEmpty());
        QCOMPARE(middle(*frame), red);
    }
    QCOMPARE(GatedPng::begun().count(QStringLiteral("shared")), 1);
}

void tst_ThumbFrameBackground::aRepaintRequestsNothing()
{
    GatedPng::close();
    Frame frame(picture(QStringLiteral("a")));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(middle(frame), white);
    GatedPng::open();
    QTRY_VERIFY(!frame.isEmpty());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(middle(frame), red);
    QVERIFY(PictureLoader::isIdle());
    QCOMPARE(GatedPng::begun().size(), 1);
}

void tst_ThumbFrameBackground::aPreviousSizeIsShownMeanwhile()
{
    Frame frame(picture(QStringLiteral("a")));
    QTRY_VERIFY(!frame.isEmpty());
    GatedPng::close();
    frame.resize(80, 60);
    QCOMPARE(TestImages::areaOf(frame.grab().toImage(), red), QRect(10, 0, 60, 60));
    QVERIFY(!frame.isEmpty());
    QTRY_COMPARE(GatedPng::begun().size(), 2);
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    QCOMPARE(TestImages::areaOf(frame.grab().toImage(), red), QRect(10, 0, 60, 60));
}

void tst_ThumbFrameBackground::previousContentIsShownMeanwhile()
{
    Frame frame(picture(QStringLiteral("a")));
    frame.setPlaceholderShown(true);
    QTRY_VERIFY(!frame.isEmpty());
    TestImages::write(QStringLiteral("a.png"), QSize(31, 31), blue);
    GatedPng::close();
    frame.setIsEmpty(true);
    QCOMPARE(TestImages::areaOf(frame.grab().toImage(), red), frame.rect());
    QVERIFY(frame.isEmpty());
    GatedPng::open();
    QTRY_VERIFY(!frame.isEmpty());
    QCOMPARE(TestImages::areaOf(frame.grab().toImage(), blue), frame.rect());
}

void tst_ThumbFrameBackground::anotherPathShowsNothingMeanwhile()
{
    Frame frame(picture(QStringLiteral("a")));
    QTRY_VERIFY(!frame.isEmpty());
    GatedPng::close();
    frame.setImagePath(picture(QStringLiteral("b"), blue));
    QCOMPARE(TestImages::areaOf(frame.grab().toImage(), white), frame.rect());
    GatedPng::open();
    QTRY_VERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), blue);
}

void tst_ThumbFrameBackground::theFrameMayGoWhileItsPictureIsDecoded()
{
    GatedPng::close();
    auto frame = std::make_unique<Frame>(picture(QStringLiteral("a")));
    QTRY_COMPARE(GatedPng::begun().size(), 1);
    frame.reset();
    QVERIFY(!PictureLoader::isIdle());
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    QCOMPARE(GatedPng::ended(), 1);
}

void tst_ThumbFrameBackground::anotherPathReplacesTheOneBeingDecoded()
{
    GatedPng::close();
    Frame frame(picture(QStringLiteral("a")));
    QTRY_COMPARE(GatedPng::begun().size(), 1);
    const Frame other(frame.imagePath()); // waits for the same decoding
    QTRY_VERIFY(frame.paints > 0 && other.paints > 0);
    frame.setImagePath(TestHome::path() + QStringLiteral("/none.png"));
    middle(frame);
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    QCOMPARE(GatedPng::begun(), QStringList{QStringLiteral("a")});
    QVERIFY(frame.isEmpty());
    frame.setImagePath(picture(QStringLiteral("b"), blue));
    QTRY_VERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), blue);
}

void tst_ThumbFrameBackground::anotherSizeReplacesTheOneBeingDecoded()
{
    GatedPng::close();
    Frame frame(picture(QStringLiteral("a")));
    const Frame other(frame.imagePath()); // still waits for it
    QTRY_COMPARE(GatedPng::begun().size(), 1);
    QTRY_VERIFY(frame.paints > 0 && other.paints > 0);
    replaceUnnoticed(frame.imagePath(), blue);
    frame.resize(50, 50);
    QCOMPARE(middle(frame), white);
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    QCOMPARE(middle(frame), blue);
}

void tst_ThumbFrameBackground::aReplacedFileIsReadAgain()
{
    GatedPng::close();
    Frame frame(picture(QStringLiteral("a")));
    Frame other(frame.imagePath()); // keeps the decoding of the first content
    QTRY_COMPARE(GatedPng::begun().size(), 1);
    QTRY_VERIFY(other.paints > 0);
    replaceUnnoticed(frame.imagePath(), blue);
    frame.setIsEmpty(true);
    frame.setIsEmpty(true);
    QCOMPARE(middle(frame), white);
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    QCOMPARE(middle(frame), blue);
    QCOMPARE(middle(other), red);
}

void tst_ThumbFrameBackground::aFileThatNobodyWantsIsNotRead_data()
{
    QTest::addColumn<Action>("leave");
    QTest::newRow("destroyed") << Action([](std::unique_ptr<Frame>& frame) { frame.reset(); });
    QTest::newRow("hidden") << Action([](std::unique_ptr<Frame>& frame) { frame->hide(); });
    QTest::newRow("another path") << Action(
        [](std::unique_ptr<Frame>& frame) { frame->setImagePath(QString()); });
    QTest::newRow("another size, which is decoded") << Action([](std::unique_ptr<Frame>& frame) {
        frame->resize(41, 41);
        middle(*frame);
    });
}

void tst_ThumbFrameBackground::aFileThatNobodyWantsIsNotRead()
{
    QFETCH(Action, leave);
    occupyThreads();
    auto frame = std::make_unique<Frame>(picture(QStringLiteral("left")));
    QTRY_VERIFY(frame->paints > 0);
    leave(frame);
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    const bool isShown = frame && frame->size() != usualSize;
    QCOMPARE(GatedPng::begun().count(QStringLiteral("left")), isShown ? 1 : 0);
    QCOMPARE(GatedPng::begun().size(), moreThanThreads + (isShown ? 1 : 0));
}

void tst_ThumbFrameBackground::aHiddenFrameRequestsItAgainWhenShown()
{
    GatedPng::close();
    Frame frame(picture(QStringLiteral("a")));
    QTRY_COMPARE(GatedPng::begun().size(), 1);
    frame.hide();
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    QVERIFY(frame.isEmpty());
    frame.show();
    QTRY_VERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameBackground::theLatestAreDecodedFirst()
{
    occupyThreads();
    const int atGate = GatedPng::begun().size();
    Frame latest(picture(QStringLiteral("latest")));
    QTRY_VERIFY(latest.paints > 0);
    GatedPng::open();
    QTRY_VERIFY(PictureLoader::isIdle());
    const int place = GatedPng::begun().indexOf(QStringLiteral("latest"));
    QVERIFY2(place >= atGate && place < moreThanThreads / 2, QByteArray::number(place).constData());
}

void tst_ThumbFrameBackground::aDamagedFileIsTriedOnce()
{
    const QString path = picture(QStringLiteral("damaged"));
    const QByteArray content = CatalogueFiles::read(path);
    CatalogueFiles::write(path, content.left(content.indexOf("IDAT") + 10));
    Frame frame(path);
    QTRY_COMPARE(GatedPng::ended(), 1);
    QTRY_VERIFY(PictureLoader::isIdle());
    QVERIFY(frame.isEmpty());
    for (int i = 0; i < 3; ++i)
        QCOMPARE(middle(frame), white);
    QVERIFY(PictureLoader::isIdle());
    QCOMPARE(GatedPng::begun().size(), 1);
    CatalogueFiles::write(path, content);
    frame.setIsEmpty(true);
    QTRY_VERIFY(!frame.isEmpty());
}

void tst_ThumbFrameBackground::aMissingFileEndsThePreviousPicture()
{
    Frame frame(picture(QStringLiteral("a")));
    QTRY_VERIFY(!frame.isEmpty());
    QVERIFY(QFile::remove(frame.imagePath()));
    frame.setIsEmpty(true);
    QCOMPARE(middle(frame), red);
    QTRY_COMPARE(middle(frame), white);
    QVERIFY(frame.isEmpty());
}

MV_WIDGET_TEST_MAIN(tst_ThumbFrameBackground)
#include "tst_ThumbFrameBackground.moc"
