// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemePreviewFrm.h"
#include "FaceFixture.h"

#include <QImageReader>
#include <QMovie>

namespace {

/// A preview frame that gives access to its movie.
class Screen
{
public:
    QLabel* label() { return part<QLabel>(frame, "stackedWidget/pagePreview/lblGif"); }
    QMovie* movie() { return label()->movie(); }

    MVThemePreviewFrm frame{nullptr};
};

} // namespace

/// Tests which file a preview plays, and at what size.
class tst_MVThemePreviewFrm_movie : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void theTestFilesAreAnimations();
    void showsTheFileInItsLabel();
    void cachesNoFrames();
    void takesTheAnimationOfTheItem();
    void anotherItemBringsAnotherAnimation();
    void aMissingFileBringsThePlaceholder_data();
    void aMissingFileBringsThePlaceholder();
    void anExistingFileIsUsedWhateverItsContent();
    void enlargesAboveAScale_data();
    void enlargesAboveAScale();
    void enlargesThePlaceholderToo();
    void playsAtTheScaleOfTheScreen_data();
    void playsAtTheScaleOfTheScreen();
    void aSmallerScaleBringsTheOwnSizeBack();

private:
    QString write(const QString& name, const QSize& size) const;
    QString placeholder() const
    {
        return hostSettings().testOutputDir + QStringLiteral("/testskin/Simple.gif");
    }

    FaceFixture m_world;
};

QString tst_MVThemePreviewFrm_movie::write(const QString& name, const QSize& size) const
{
    QString path = m_world.base() + QLatin1Char('/') + name;
    CatalogueFiles::write(path, GifFile::plain(size, {Qt::red, Qt::green}, 50));
    return path;
}

void tst_MVThemePreviewFrm_movie::theTestFilesAreAnimations()
{
    const QString path = m_world.base() + QStringLiteral("/three.gif");
    CatalogueFiles::write(path, GifFile::plain({101, 61}, {Qt::red, Qt::green, Qt::blue}, 70));
    QImageReader reader(path);
    QCOMPARE(reader.format(), QByteArray("gif"));
    QCOMPARE(reader.size(), QSize(101, 61));
    QCOMPARE(reader.imageCount(), 3);
    QCOMPARE(reader.loopCount(), -1);
    const QVector<QColor> colours{Qt::red, Qt::green, Qt::blue};
    for (const QColor& colour : colours) {
        QImage plain({101, 61}, QImage::Format_RGB32);
        plain.fill(colour);
        QCOMPARE(reader.read().convertToFormat(QImage::Format_RGB32), plain);
        QCOMPARE(reader.nextImageDelay(), 70);
    }
}

void tst_MVThemePreviewFrm_movie::showsTheFileInItsLabel()
{
    Screen screen;
    const QString path = write(QStringLiteral("a.gif"), {20, 10});
    screen.frame.setMoviePath(path);
    QVERIFY(screen.movie());
    QCOMPARE(screen.movie()->fileName(), path);
    QCOMPARE(screen.movie()->parent(), nullptr);
}

void tst_MVThemePreviewFrm_movie::cachesNoFrames()
{
    Screen screen;
    screen.frame.setMoviePath(write(QStringLiteral("a.gif"), {20, 10}));
    QCOMPARE(screen.movie()->cacheMode(), QMovie::CacheNone);
}

void tst_MVThemePreviewFrm_movie::takesTheAnimationOfTheItem()
{
    const SCfg_Item item = m_world.completeItem();
    Screen screen;
    screen.frame.setItemData(&item);
    QCOMPARE(screen.movie()->fileName(), m_world.gifFile(item));
    QCOMPARE(screen.movie()->state(), QMovie::NotRunning);
}

void tst_MVThemePreviewFrm_movie::anotherItemBringsAnotherAnimation()
{
    const SCfg_Item first = m_world.completeItem(eCfgItem_Theme, 1);
    const SCfg_Item second = m_world.completeItem(eCfgItem_Theme, 2);
    Screen screen;
    screen.frame.setItemData(&first);
    const QMovie* movie = screen.movie();
    screen.frame.setItemData(&second);
    QCOMPARE(screen.movie(), movie);
    QCOMPARE(screen.movie()->fileName(), m_world.gifFile(second));
}

void tst_MVThemePreviewFrm_movie::aMissingFileBringsThePlaceholder_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("placeholderExists");
    QTest::newRow("missing") << QStringLiteral("/nowhere/a.gif") << true;
    QTest::newRow("empty") << QString() << true;
    QTest::newRow("neither exists") << QStringLiteral("/nowhere/a.gif") << false;
}

void tst_MVThemePreviewFrm_movie::aMissingFileBringsThePlaceholder()
{
    QFETCH(QString, path);
    QFETCH(bool, placeholderExists);
    if (placeholderExists)
        CatalogueFiles::write(placeholder(), GifFile::plain({8, 8}, {Qt::red}, 50));
    Screen screen;
    screen.frame.setMoviePath(path);
    QCOMPARE(screen.movie()->fileName(), placeholder());
    QCOMPARE(screen.movie()->isValid(), placeholderExists);
}

void tst_MVThemePreviewFrm_movie::anExistingFileIsUsedWhateverItsContent()
{
    CatalogueFiles::write(placeholder(), GifFile::plain({8, 8}, {Qt::red}, 50));
    const QString path = m_world.base() + QStringLiteral("/text.gif");
    CatalogueFiles::write(path, "no animation");
    Screen screen;
    screen.frame.setMoviePath(path);
    QCOMPARE(screen.movie()->fileName(), path);
    QVERIFY(!screen.movie()->isValid());
}

void tst_MVThemePreviewFrm_movie::enlargesAboveAScale_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("scaled");
    QTest::newRow("1.0") << 1.0 << QSize(100, 60) << QSize();
    QTest::newRow("0.5") << 0.5 << QSize(100, 60) << QSize();
    QTest::newRow("1.25") << 1.25 << QSize(100, 60) << QSize();
    QTest::newRow("1.2500001") << 1.2500001 << QSize(100, 60) << QSize(125, 75);
    QTest::newRow("1.26") << 1.26 << QSize(100, 60) << QSize(126, 76);
    QTest::newRow("1.5") << 1.5 << QSize(100, 60) << QSize(150, 90);
    QTest::newRow("2.0") << 2.0 << QSize(100, 60) << QSize(200, 120);
    QTest::newRow("halves go up") << 1.5 << QSize(3, 1) << QSize(5, 2);
    QTest::newRow("down") << 1.4 << QSize(6, 11) << QSize(8, 15);
}

void tst_MVThemePreviewFrm_movie::enlargesAboveAScale()
{
    QFETCH(double, zoom);
    QFETCH(QSize, size);
    QFETCH(QSize, scaled);
    hostSettings().zoomDPI = zoom;
    Screen screen;
    screen.frame.setMoviePath(write(QStringLiteral("a.gif"), size));
    QCOMPARE(screen.movie()->scaledSize(), scaled);
}

void tst_MVThemePreviewFrm_movie::enlargesThePlaceholderToo()
{
    hostSettings().zoomDPI = 1.5;
    CatalogueFiles::write(placeholder(), GifFile::plain({100, 60}, {Qt::red}, 50));
    Screen screen;
    screen.frame.setMoviePath(QString());
    QCOMPARE(screen.movie()->scaledSize(), QSize(150, 90));
}

void tst_MVThemePreviewFrm_movie::playsAtTheScaleOfTheScreen_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("own size") << 1.25 << QSize(100, 60);
    QTest::newRow("enlarged") << 1.5 << QSize(150, 90);
}

void tst_MVThemePreviewFrm_movie::playsAtTheScaleOfTheScreen()
{
    QFETCH(double, zoom);
    QFETCH(QSize, shown);
    hostSettings().zoomDPI = zoom;
    const SCfg_Item item = m_world.completeItem();
    CatalogueFiles::write(m_world.gifFile(item),
                          GifFile::plain({100, 60}, {Qt::red, Qt::green}, 50));
    Screen screen;
    screen.frame.setItemData(&item);
    screen.frame.startPlayGif();
    QCOMPARE(screen.movie()->currentPixmap().size(), shown);
    screen.frame.stopPlayGif();
    screen.frame.startPlayGif();
    QCOMPARE(screen.movie()->currentPixmap().size(), shown);
}

void tst_MVThemePreviewFrm_movie::aSmallerScaleBringsTheOwnSizeBack()
{
    const SCfg_Item item = m_world.completeItem();
    Screen screen;
    hostSettings().zoomDPI = 2.0;
    screen.frame.setItemData(&item);
    hostSettings().zoomDPI = 1.0;
    screen.frame.setItemData(&item);
    screen.frame.startPlayGif();
    QCOMPARE(screen.movie()->currentPixmap().size(), QSize(20, 10));
}

MV_WIDGET_TEST_MAIN(tst_MVThemePreviewFrm_movie)
#include "tst_MVThemePreviewFrm_movie.moc"
