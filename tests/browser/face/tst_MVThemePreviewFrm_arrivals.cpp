// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemePreviewFrm.h"
#include "FaceFixture.h"
#include "host/widgets/ThumbFrame.h"

#include <QMovie>
#include <QSignalSpy>

/// Tests previews whose files arrive, or that leave the screen, while in use.
class tst_MVThemePreviewFrm_arrivals : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void plays_on_when_the_item_is_set_again();
    void shows_a_thumbnail_that_a_download_brought();
    void stops_when_it_is_hidden();
    void refuses_an_animation_that_announces_too_many_pixels_data();
    void refuses_an_animation_that_announces_too_many_pixels();
    void shows_a_large_animation_whole();

private:
    static QMovie* movieOf(MVThemePreviewFrm& frame)
    {
        return part<QLabel>(frame, "stackedWidget/pagePreview/lblGif")->movie();
    }
    static QString pageOf(MVThemePreviewFrm& frame)
    {
        return part<QStackedWidget>(frame, "stackedWidget")->currentWidget()->objectName();
    }

    FaceFixture m_fixture;
};

void tst_MVThemePreviewFrm_arrivals::init()
{
    m_fixture.fresh();
}

void tst_MVThemePreviewFrm_arrivals::plays_on_when_the_item_is_set_again()
{
    const SCfg_Item item = m_fixture.completeItem();
    MVThemePreviewFrm frame(nullptr);
    frame.setItemData(&item);
    frame.startPlayGif();
    frame.setItemData(&item);
    QSignalSpy frames(movieOf(frame), &QMovie::frameChanged);
    QTRY_VERIFY(frames.count() > 4);
    QCOMPARE(pageOf(frame), QStringLiteral("pagePreview"));
}

void tst_MVThemePreviewFrm_arrivals::shows_a_thumbnail_that_a_download_brought()
{
    SCfg_Item item = FaceFixture::item();
    MVThemePreviewFrm frame(nullptr);
    frame.resize(40, 30);
    frame.setItemData(&item);
    auto* const picture = part<ThumbFrame>(frame, "stackedWidget/pageNormal/frmPic");
    frame.grab();
    QVERIFY(picture->isEmpty());
    m_fixture.complete(item);
    frame.setItemData(&item);
    QCOMPARE(picture->grab().toImage().pixelColor(20, 15), QColor(Qt::red));
}

void tst_MVThemePreviewFrm_arrivals::stops_when_it_is_hidden()
{
    const SCfg_Item item = m_fixture.completeItem();
    QWidget window;
    auto* const frame = new MVThemePreviewFrm(&window);
    frame->setItemData(&item);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    frame->startPlayGif();
    QCOMPARE(movieOf(*frame)->state(), QMovie::Running);
    window.hide();
    QCOMPARE(movieOf(*frame)->state(), QMovie::NotRunning);
    QCOMPARE(pageOf(*frame), QStringLiteral("pageNormal"));
}

void tst_MVThemePreviewFrm_arrivals::refuses_an_animation_that_announces_too_many_pixels_data()
{
    QTest::addColumn<quint16>("width");
    QTest::addColumn<quint16>("height");
    QTest::addColumn<bool>("plays");
    QTest::newRow("small") << quint16(20) << quint16(10) << true;
    QTest::newRow("64 Mi and a row more") << quint16(8192) << quint16(8193) << false;
    QTest::newRow("no canvas, so its first image counts") << quint16(0) << quint16(0) << false;
    QTest::newRow("the largest") << quint16(0xffff) << quint16(0xffff) << false;
}

void tst_MVThemePreviewFrm_arrivals::refuses_an_animation_that_announces_too_many_pixels()
{
    QFETCH(quint16, width);
    QFETCH(quint16, height);
    QFETCH(bool, plays);
    const SCfg_Item item = m_fixture.completeItem();
    QByteArray bytes = CatalogueFiles::read(m_fixture.gifFile(item));
    bytes[6] = static_cast<char>(width & 0xff);
    bytes[7] = static_cast<char>(width >> 8);
    bytes[8] = static_cast<char>(height & 0xff);
    bytes[9] = static_cast<char>(height >> 8);
    CatalogueFiles::write(m_fixture.gifFile(item), bytes);

    hostSettings().zoomDPI = 1.5; // this also needs the size of the first image
    MVThemePreviewFrm frame(nullptr);
    frame.setItemData(&item);
    const LogCapture log;
    frame.startPlayGif();
    QCOMPARE(frame.isPlaying(), plays);
    QCOMPARE(log.count("startPlayGif m_movie.isValid() == false!"), plays ? 0 : 1);
    QCOMPARE(pageOf(frame), plays ? QStringLiteral("pagePreview") : QStringLiteral("pageNormal"));
}

void tst_MVThemePreviewFrm_arrivals::shows_a_large_animation_whole()
{
    const SCfg_Item item = m_fixture.completeItem();
    CatalogueFiles::write(m_fixture.gifFile(item),
                          GifFile::plain({200, 100}, {Qt::green, Qt::green}, 20));
    MVThemePreviewFrm frame(nullptr);
    frame.resize(100, 100);
    frame.setItemData(&item);
    frame.startPlayGif();
    const QImage shown = frame.grab().toImage();
    // At half size and centred: a band of 50 pixels.
    QCOMPARE(shown.pixelColor(2, 50), QColor(Qt::green));
    QCOMPARE(shown.pixelColor(97, 50), QColor(Qt::green));
    QCOMPARE(shown.pixelColor(50, 28), QColor(Qt::green));
    QVERIFY(shown.pixelColor(50, 20) != QColor(Qt::green));
    QVERIFY(shown.pixelColor(50, 80) != QColor(Qt::green));
}

MV_WIDGET_TEST_MAIN(tst_MVThemePreviewFrm_arrivals)
#include "tst_MVThemePreviewFrm_arrivals.moc"
