// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/CountingFrame.h"
#include "host/widgets/TestImages.h"

#include <QApplication>
#include <QFile>

namespace {

const QColor red(255, 0, 0);
const QColor blue(0, 0, 255);

} // namespace

/// Tests when the file is read. Changing the file tells a decoded image from a cached one.
class tst_ThumbFrameDecoding : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void isNotReadBeforeItIsVisible();
    void isNotReadWhileItsParentIsHidden();
    void isReadOncePerSize();
    void isReadAgainAtAnotherSize();
    void aRepaintReadsNoFile();
    void theSamePathAgainReadsNoFile();
    void markedEmptyItIsReadAgain();
    void markedEmptyItRepaintsItself();
    void anotherPathRepaints();
    void markedNotEmptyNothingChanges();
    void aMissingFileIsTriedAgainOnDemand();
    void aMissingFileIsTriedAgainAtAnotherSize();
    void theFileMayGoOnceItIsRead();
    void anImageThatWouldFillTheMemoryIsNotDecoded();

private:
    void writeImage(const QColor& colour)
    {
        m_path = TestImages::write(QStringLiteral("image.png"), QSize(30, 30), colour);
    }
    static QColor middle(ThumbFrame& frame)
    {
        const QImage painted = frame.grab().toImage();
        return painted.pixelColor(painted.rect().center());
    }

    QString m_path;
};

void tst_ThumbFrameDecoding::init()
{
    writeImage(red);
}

void tst_ThumbFrameDecoding::isNotReadBeforeItIsVisible()
{
    CountingFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QCoreApplication::processEvents();
    QVERIFY(frame.isEmpty());
    writeImage(blue);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QTRY_VERIFY(frame.paints > 0);
    QVERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), blue);
}

void tst_ThumbFrameDecoding::isNotReadWhileItsParentIsHidden()
{
    QWidget window;
    window.resize(40, 40);
    auto* page = new QWidget(&window);
    page->resize(40, 40);
    page->hide();
    auto* frame = new CountingFrame(page);
    frame->resize(40, 40);
    frame->setImagePath(m_path);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    frame->repaint();
    QCOMPARE(frame->paints, 0);
    QVERIFY(frame->isEmpty());
    page->show();
    QTRY_VERIFY(frame->paints > 0);
    QVERIFY(!frame->isEmpty());
}

void tst_ThumbFrameDecoding::isReadOncePerSize()
{
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QCOMPARE(middle(frame), red);
    writeImage(blue);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(middle(frame), red);
    frame.resize(40, 40);
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::isReadAgainAtAnotherSize()
{
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QCOMPARE(middle(frame), red);
    writeImage(blue);
    frame.resize(50, 40);
    QCOMPARE(middle(frame), blue);
    writeImage(red);
    frame.setContentsMargins(5, 5, 5, 5); // changes the room for the image
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::aRepaintReadsNoFile()
{
    CountingFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QTRY_VERIFY(!frame.isEmpty());
    writeImage(blue);
    for (int i = 0; i < 3; ++i) {
        const int before = frame.paints;
        frame.update();
        QTRY_VERIFY(frame.paints > before);
    }
    frame.hide();
    const int before = frame.paints;
    frame.show();
    QTRY_VERIFY(frame.paints > before);
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::theSamePathAgainReadsNoFile()
{
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QCOMPARE(middle(frame), red);
    writeImage(blue);
    frame.setImagePath(m_path);
    QVERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::markedEmptyItIsReadAgain()
{
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QVERIFY(frame.isEmpty());
    QCOMPARE(middle(frame), red);
    QVERIFY(!frame.isEmpty());
    writeImage(blue);
    frame.setIsEmpty(true);
    QVERIFY(frame.isEmpty());
    QCOMPARE(middle(frame), blue);
    QVERIFY(!frame.isEmpty());
}

void tst_ThumbFrameDecoding::markedEmptyItRepaintsItself()
{
    CountingFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QTRY_VERIFY(!frame.isEmpty());
    writeImage(blue);
    frame.setIsEmpty(true);
    QTRY_VERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), blue);
}

void tst_ThumbFrameDecoding::anotherPathRepaints()
{
    CountingFrame frame;
    frame.resize(40, 40);
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QTRY_VERIFY(frame.paints > 0);
    QVERIFY(frame.isEmpty());
    frame.setImagePath(m_path);
    QTRY_VERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::markedNotEmptyNothingChanges()
{
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    frame.setIsEmpty(false);
    QVERIFY(frame.isEmpty());
    QCOMPARE(middle(frame), red);
    writeImage(blue);
    frame.setIsEmpty(false);
    QVERIFY(!frame.isEmpty());
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::aMissingFileIsTriedAgainOnDemand()
{
    QVERIFY(QFile::remove(m_path));
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QVERIFY(middle(frame) != red);
    writeImage(red);
    QVERIFY(middle(frame) != red); // once per size, even after a failure
    QVERIFY(frame.isEmpty());
    frame.setIsEmpty(true);
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::aMissingFileIsTriedAgainAtAnotherSize()
{
    QVERIFY(QFile::remove(m_path));
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QVERIFY(middle(frame) != red);
    writeImage(red);
    frame.resize(41, 40);
    QCOMPARE(middle(frame), red);
}

void tst_ThumbFrameDecoding::anImageThatWouldFillTheMemoryIsNotDecoded()
{
    const QString path = TestHome::path() + QStringLiteral("/huge.png");
    QImage image(9000, 9000, QImage::Format_Mono);
    image.fill(1);
    QVERIFY(image.save(path));
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(path);
    frame.grab();
    QVERIFY(frame.isEmpty());
}

void tst_ThumbFrameDecoding::theFileMayGoOnceItIsRead()
{
    ThumbFrame frame;
    frame.resize(40, 40);
    frame.setImagePath(m_path);
    QCOMPARE(middle(frame), red);
    QVERIFY(QFile::remove(m_path));
    QCOMPARE(middle(frame), red);
    frame.setIsEmpty(true);
    QVERIFY(middle(frame) != red);
    QVERIFY(frame.isEmpty());
}

MV_WIDGET_TEST_MAIN(tst_ThumbFrameDecoding)
#include "tst_ThumbFrameDecoding.moc"
