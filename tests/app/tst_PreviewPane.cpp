// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PreviewPane.h"

#include "host/widgets/PictureLoader.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QImage>
#include <QTemporaryDir>

/// Tests which files the large preview shows, and how.
class tst_PreviewPane : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void showsTheThumbnailUntilItPlays();
    void withoutAThumbnailTheFirstFrameIsShown();
    void anItemWithoutFilesShowsNothing();
    void hugeAnimationsCountAsNone_data();
    void hugeAnimationsCountAsNone();
    void hugeThumbnailsCountAsNone();
    void smallPicturesAreNotBlownUp();
    void largePicturesFillThePaneAtEverySize();

private:
    QString write(const QString& name, const QByteArray& bytes) const;
    QString thumbnail(const QColor& color) const;
    QString animation(const QColor& color) const;
    QColor middle() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<PreviewPane> m_pane;
};

namespace {

QByteArray number(int value)
{
    return QByteArray(1, char(value & 0xff)) + QByteArray(1, char(value >> 8));
}

/// Returns a GIF with one frame of a single colour, whose pixel data may be truncated.
QByteArray gif(const QColor& color, const QSize& canvas, const QSize& frame)
{
    const QByteArray colors = QByteArray(1, char(color.red())) + char(color.green())
        + char(color.blue()) + QByteArray(3, '\0');
    const QByteArray onePixel("\x02\x02\x44\x01\x00", 5);
    return "GIF89a" + number(canvas.width()) + number(canvas.height()) + "\x80" + number(0) + colors
        + "," + number(0) + number(0) + number(frame.width()) + number(frame.height())
        + QByteArray(1, '\0') + onePixel + ";";
}

} // namespace

void tst_PreviewPane::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_pane = std::make_unique<PreviewPane>(nullptr);
    m_pane->resize(160, 90);
}

QString tst_PreviewPane::write(const QString& name, const QByteArray& bytes) const
{
    CatalogueFiles::write(m_folder->filePath(name), bytes);
    return m_folder->filePath(name);
}

QString tst_PreviewPane::thumbnail(const QColor& color) const
{
    QImage image(16, 9, QImage::Format_RGB32);
    image.fill(color);
    QString file = m_folder->filePath(color.name() + QStringLiteral(".png"));
    image.save(file);
    return file;
}

QString tst_PreviewPane::animation(const QColor& color) const
{
    return write(color.name() + QStringLiteral(".gif"), gif(color, {1, 1}, {1, 1}));
}

QColor tst_PreviewPane::middle() const
{
    const QImage shown = m_pane->grab().toImage();
    return shown.pixelColor(shown.width() / 2, shown.height() / 2);
}

void tst_PreviewPane::showsTheThumbnailUntilItPlays()
{
    m_pane->show(thumbnail(Qt::green), animation(Qt::red), false);
    QTRY_COMPARE(middle(), QColor(Qt::green));
    m_pane->setPlaying(true);
    QTRY_COMPARE(middle(), QColor(Qt::red));
}

void tst_PreviewPane::withoutAThumbnailTheFirstFrameIsShown()
{
    m_pane->show(QString(), animation(Qt::red), true);
    QTRY_COMPARE(middle(), QColor(Qt::red));
    m_pane->show(QString(), animation(Qt::blue), false);
    QVERIFY(!m_pane->isPlaying());
    QTRY_COMPARE(middle(), QColor(Qt::blue));
}

void tst_PreviewPane::anItemWithoutFilesShowsNothing()
{
    const QColor nothing = middle();
    m_pane->show(QString(), animation(Qt::red), true);
    QTRY_COMPARE(middle(), QColor(Qt::red));
    m_pane->show(QString(), QString(), true);
    QVERIFY(!m_pane->isPlaying());
    QCOMPARE(middle(), nothing);
}

void tst_PreviewPane::hugeAnimationsCountAsNone_data()
{
    QTest::addColumn<QSize>("canvas");
    QTest::addColumn<QSize>("frame");
    QTest::addColumn<bool>("plays");
    const QSize most(4096, 4096);
    const QSize more(4097, 4096);
    QTest::newRow("most canvas") << most << QSize(1000, 1000) << true;
    QTest::newRow("more canvas") << more << QSize(1000, 1000) << false;
    QTest::newRow("more in a frame, without a canvas") << QSize(0, 0) << more << false;
}

void tst_PreviewPane::hugeAnimationsCountAsNone()
{
    QFETCH(QSize, canvas);
    QFETCH(QSize, frame);
    QFETCH(bool, plays);
    m_pane->show(thumbnail(Qt::green),
                 write(QStringLiteral("huge.gif"), gif(Qt::red, canvas, frame)), true);
    QCOMPARE(m_pane->isPlaying(), plays);
}

void tst_PreviewPane::hugeThumbnailsCountAsNone()
{
    const QColor nothing = middle();
    m_pane->show(write(QStringLiteral("huge.png"), gif(Qt::red, {4097, 4096}, {4097, 4096})),
                 QString(), true);
    QTRY_VERIFY(PictureLoader::isIdle());
    QCOMPARE(middle(), nothing);
}

void tst_PreviewPane::smallPicturesAreNotBlownUp()
{
    const QColor nothing = middle();
    m_pane->show(thumbnail(Qt::green), QString(), false);
    QTRY_COMPARE(middle(), QColor(Qt::green));
    const QImage shown = m_pane->grab().toImage();
    const QPoint center(shown.width() / 2, shown.height() / 2);
    QCOMPARE(shown.pixelColor(center - QPoint(6, 3)), QColor(Qt::green));
    QCOMPARE(shown.pixelColor(center - QPoint(12, 0)), nothing);
    QCOMPARE(shown.pixelColor(center + QPoint(0, 8)), nothing);
}

void tst_PreviewPane::largePicturesFillThePaneAtEverySize()
{
    QImage image(640, 360, QImage::Format_RGB32);
    image.fill(Qt::green);
    const QString file = m_folder->filePath(QStringLiteral("large.png"));
    QVERIFY(image.save(file));
    m_pane->show(file, QString(), false);
    const auto corner = [this] {
        const QImage shown = m_pane->grab().toImage();
        return shown.pixelColor(2, 2);
    };
    QTRY_COMPARE(corner(), QColor(Qt::green));
    m_pane->resize(320, 180);
    QTRY_COMPARE(corner(), QColor(Qt::green));
}

MV_WIDGET_TEST_MAIN(tst_PreviewPane)
#include "tst_PreviewPane.moc"
