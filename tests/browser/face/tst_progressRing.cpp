// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RingFixture.h"
#include "support/ScaledRuns.h"

#include <QProcess>
#include <QtMath>

#include <cmath>

namespace {

const QRgb uncovered = QColor(Qt::blue).rgb();
const QRgb ground = QColor(Qt::green).rgb();
constexpr double uncertain = 1.6; // device pixels on either side of the sector's edge

/// A sector of the ellipse that fills a rectangle, clockwise from twelve o'clock.
class Sector
{
public:
    Sector(const QSize& size, double degrees)
        : m_radius(size.width() / 2.0, size.height() / 2.0)
        , m_degrees(degrees)
    {
    }

    bool contains(const QPointF& point) const
    {
        if (m_degrees <= 0)
            return false;
        const QPointF unit = toUnit(point);
        double angle = qRadiansToDegrees(std::atan2(unit.x(), -unit.y()));
        if (angle < 0)
            angle += 360;
        return std::hypot(unit.x(), unit.y()) <= 1 && angle <= m_degrees;
    }
    bool isNearEdge(const QPointF& point) const
    {
        const QPointF unit = toUnit(point);
        const double outline =
            std::abs(std::hypot(unit.x(), unit.y()) - 1) * qMin(m_radius.x(), m_radius.y());
        if (outline < uncertain)
            return true;
        if (m_degrees <= 0 || m_degrees >= 360)
            return false;
        return distanceToRadius(point, 0) < uncertain
            || distanceToRadius(point, m_degrees) < uncertain;
    }

private:
    QPointF toUnit(const QPointF& point) const
    {
        return {(point.x() - m_radius.x()) / m_radius.x(),
                (point.y() - m_radius.y()) / m_radius.y()};
    }
    double distanceToRadius(const QPointF& point, double degrees) const
    {
        const double angle = qDegreesToRadians(degrees);
        const QPointF end(m_radius.x() * std::sin(angle), -m_radius.y() * std::cos(angle));
        const QPointF from = point - m_radius;
        const double along = QPointF::dotProduct(from, end) / QPointF::dotProduct(end, end);
        const QPointF foot = end * qBound(0.0, along, 1.0);
        return std::hypot(from.x() - foot.x(), from.y() - foot.y());
    }

    QPointF m_radius; // also the coordinates of the centre
    double m_degrees;
};

/// Describes where the ring differs from the sector, ignoring pixels near the sector's edges.
QString difference(const QImage& ring, const Sector& sector)
{
    int sure = 0;
    for (int y = 0; y < ring.height(); ++y) {
        for (int x = 0; x < ring.width(); ++x) {
            const QPointF centre(x + 0.5, y + 0.5);
            const QRgb pixel = ring.pixel(x, y);
            if (sector.isNearEdge(centre) && (pixel == uncovered || pixel == ground))
                continue;
            ++sure;
            if (pixel != (sector.contains(centre) ? uncovered : ground))
                return QStringLiteral("(%1, %2) is %3").arg(x).arg(y).arg(pixel, 8, 16);
        }
    }
    return sure * 3 > ring.width() * ring.height() * 2 ? QString() : QStringLiteral("too vague");
}

} // namespace

/// Tests the pictures of the progress ring.
class tst_progressRing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_world.fresh(); }

    void uncoversASector_data();
    void uncoversASector();
    void everyPercentIsPaintedRight();
    void beginsAtTwelveOClock();
    void stretchesItsPictures_data();
    void stretchesItsPictures();
    void aPictureLargerThanTheRingIsShrunk();
    void scalesSmoothly();
    void withoutPicturesItPaintsNothing();
    void keepsTheTransparencyOfThePicture();
    void cutsFractions_data();
    void cutsFractions();
    void ignoresNonFiniteNumbers_data();
    void ignoresNonFiniteNumbers();
    void paintsOnlyOnItsLabel();
    void theLabelPaintsItselfToo();
    void newPicturesArePainted();
    void usesTheDevicePixels_data();
    void usesTheDevicePixels();

private:
    FaceFixture m_world;
};

void tst_progressRing::uncoversASector_data()
{
    QTest::addColumn<double>("progress");
    QTest::addColumn<double>("degrees");
    QTest::addColumn<QSize>("size");
    const QVector<QSize> sizes{{60, 60}, {61, 61}, {90, 50}, {40, 70}};
    for (const QSize& size : sizes) {
        const auto row = [&size](int progress, int sixteenths) {
            QTest::addRow("%d of %dx%d", progress, size.width(), size.height())
                << double(progress) << sixteenths / 16.0 << size;
        };
        row(-3, 0);
        row(0, 0);
        row(1, 57);
        row(10, 576);
        row(24, 1382);
        row(25, 1440);
        row(26, 1497);
        row(50, 2880);
        row(74, 4262);
        row(75, 4320);
        row(76, 4377);
        row(99, 5702);
        row(100, 5760);
        row(101, 5760);
        row(150, 5760);
    }
}

void tst_progressRing::uncoversASector()
{
    QFETCH(double, progress);
    QFETCH(double, degrees);
    QFETCH(QSize, size);
    RingFixture ring(size);
    const QImage painted = ring.paint(progress);
    const QSize pixels = (QSizeF(size) * ring.icon->devicePixelRatioF()).toSize();
    QCOMPARE(painted.size(), pixels);
    QCOMPARE(difference(painted, Sector(pixels, degrees)), QString());
    if (degrees <= 0)
        QCOMPARE(painted, RingFixture::plain(Qt::green, pixels));
}

void tst_progressRing::everyPercentIsPaintedRight()
{
    RingFixture ring;
    int covered = -1;
    for (int percent = 0; percent <= 100; ++percent) {
        const QImage painted = ring.paint(percent);
        const int sixteenths = percent * 576 / 10;
        const Sector sector(painted.size(), sixteenths / 16.0);
        QVERIFY2(difference(painted, sector).isEmpty(), qPrintable(QString::number(percent)));
        int count = 0;
        for (int y = 0; y < painted.height(); ++y) {
            for (int x = 0; x < painted.width(); ++x)
                count += painted.pixel(x, y) == uncovered ? 1 : 0;
        }
        QVERIFY2(count > covered, qPrintable(QString::number(percent)));
        covered = count;
    }
}

void tst_progressRing::beginsAtTwelveOClock()
{
    RingFixture ring;
    const QImage painted = ring.paint(10);
    const int middle = painted.width() / 2;
    QCOMPARE(painted.pixel(middle + 4, 6), uncovered);
    QCOMPARE(painted.pixel(middle - 4, 6), ground);
}

void tst_progressRing::stretchesItsPictures_data()
{
    QTest::addColumn<bool>("mask");
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("ring");
    QTest::newRow("wide mask") << true << QSize(40, 10) << QSize(60, 60);
    QTest::newRow("tall mask") << true << QSize(10, 40) << QSize(60, 60);
    QTest::newRow("wide ring") << true << QSize(20, 20) << QSize(90, 40);
    QTest::newRow("wide image") << false << QSize(40, 10) << QSize(60, 60);
    QTest::newRow("tall image") << false << QSize(10, 40) << QSize(60, 60);
    QTest::newRow("wide ring over image") << false << QSize(20, 20) << QSize(90, 40);
}

void tst_progressRing::stretchesItsPictures()
{
    QFETCH(bool, mask);
    QFETCH(QSize, picture);
    QFETCH(QSize, ring);
    RingFixture fixture(ring);
    if (mask)
        fixture.face.setProgressMask(RingFixture::quarters(picture));
    else
        fixture.face.setProgressImage(RingFixture::quarters(picture));
    const QImage painted = fixture.paint(mask ? 0 : 100);
    const int w = painted.width();
    const int h = painted.height();
    QCOMPARE(painted.pixelColor(w / 4, h / 4), QColor(Qt::red));
    QCOMPARE(painted.pixelColor(w * 3 / 4, h / 4), QColor(Qt::green));
    QCOMPARE(painted.pixelColor(w / 4, h * 3 / 4), QColor(Qt::blue));
    QCOMPARE(painted.pixelColor(w * 3 / 4, h * 3 / 4), QColor(Qt::yellow));
    if (mask) {
        QCOMPARE(painted.pixelColor(0, 0), QColor(Qt::red));
        QCOMPARE(painted.pixelColor(w - 1, h - 1), QColor(Qt::yellow));
    } else {
        QCOMPARE(painted.pixel(0, 0), ground);
        QCOMPARE(painted.pixel(w - 1, h - 1), ground);
    }
}

void tst_progressRing::aPictureLargerThanTheRingIsShrunk()
{
    RingFixture ring({20, 20});
    ring.face.setProgressMask(RingFixture::quarters({500, 300}));
    const QImage painted = ring.paint(0);
    QCOMPARE(painted.pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(painted.pixelColor(painted.width() - 1, painted.height() - 1), QColor(Qt::yellow));
}

void tst_progressRing::scalesSmoothly()
{
    RingFixture ring;
    QImage halves(2, 1, QImage::Format_RGB32);
    halves.setPixelColor(0, 0, Qt::black);
    halves.setPixelColor(1, 0, Qt::white);
    ring.face.setProgressMask(halves);
    const QImage painted = ring.paint(0);
    const int grey = painted.pixelColor(painted.width() / 2, 10).red();
    QVERIFY2(grey > 60 && grey < 195, qPrintable(QString::number(grey)));
}

void tst_progressRing::withoutPicturesItPaintsNothing()
{
    RingFixture ring;
    ring.face.setProgressImage({});
    ring.face.setProgressMask({});
    const QImage painted = ring.paint(70);
    QLabel plain;
    plain.setFixedSize(60, 60);
    QCOMPARE(painted, plain.grab().toImage().convertToFormat(QImage::Format_RGB32));
}

void tst_progressRing::keepsTheTransparencyOfThePicture()
{
    RingFixture ring;
    QImage glass(16, 16, QImage::Format_ARGB32);
    glass.fill(Qt::transparent);
    ring.face.setProgressImage(glass);
    const QImage painted = ring.paint(100);
    QCOMPARE(painted, RingFixture::plain(Qt::green, painted.size()));
}

void tst_progressRing::cutsFractions_data()
{
    QTest::addColumn<double>("progress");
    QTest::addColumn<double>("shown");
    QTest::newRow("99.9") << 99.9 << 99.0;
    QTest::newRow("0.99") << 0.99 << 0.0;
    QTest::newRow("-0.5") << -0.5 << 0.0;
    QTest::newRow("-3.7") << -3.7 << -3.0;
    QTest::newRow("33.333") << 33.333 << 33.0;
}

void tst_progressRing::cutsFractions()
{
    QFETCH(double, progress);
    QFETCH(double, shown);
    RingFixture ring;
    ring.face.setProgressColor(Qt::black);
    const QImage expected = ring.paint(shown);
    QVERIFY(ring.paint(shown + 1) != expected);
    QCOMPARE(ring.paint(progress), expected);
}

void tst_progressRing::ignoresNonFiniteNumbers_data()
{
    QTest::addColumn<double>("progress");
    QTest::newRow("nan") << qQNaN();
    QTest::newRow("infinity") << qInf();
    QTest::newRow("-infinity") << -qInf();
}

void tst_progressRing::ignoresNonFiniteNumbers()
{
    QFETCH(double, progress);
    RingFixture ring;
    ring.face.setProgressColor(Qt::black);
    const QImage before = ring.paint(42);
    QCOMPARE(ring.paint(progress), before);
    QVERIFY(ring.paint(43) != before);
}

void tst_progressRing::paintsOnlyOnItsLabel()
{
    RingFixture ring;
    ring.face.onProgress(100);
    auto* around = ring.icon->parentWidget();
    around->resize(120, 120);
    ring.icon->move(30, 30);
    const QImage painted = around->grab().toImage();
    const qreal scale = painted.devicePixelRatioF();
    const auto at = [&](int x, int y) { return painted.pixel(int(x * scale), int(y * scale)); };
    QCOMPARE(at(ring.icon->x() + 30, ring.icon->y() + 30), uncovered);
    QVERIFY(at(ring.icon->x() - 3, ring.icon->y() + 30) != ground);
    QVERIFY(at(ring.icon->x() + 63, ring.icon->y() + 30) != ground);
    QVERIFY(at(ring.icon->x() + 63, ring.icon->y() + 30) != uncovered);
}

void tst_progressRing::theLabelPaintsItselfToo()
{
    RingFixture ring;
    QPixmap mark(10, 10);
    mark.fill(Qt::red);
    ring.icon->setAlignment(Qt::AlignCenter);
    ring.icon->setPixmap(mark);
    const QImage painted = ring.paint(100);
    const QPoint centre = painted.rect().center();
    QCOMPARE(painted.pixelColor(centre), QColor(Qt::red));
    QCOMPARE(painted.pixel(centre.x() + painted.width() / 4, centre.y()), uncovered);
    QCOMPARE(painted.pixel(0, 0), ground);
}

void tst_progressRing::newPicturesArePainted()
{
    RingFixture ring;
    ring.paint(100);
    ring.face.setProgressImage(RingFixture::plain(Qt::red));
    ring.face.setProgressMask(RingFixture::plain(Qt::yellow));
    const QImage painted = ring.paint();
    QCOMPARE(painted.pixelColor(painted.rect().center()), QColor(Qt::red));
    QCOMPARE(painted.pixelColor(0, 0), QColor(Qt::yellow));
}

void tst_progressRing::usesTheDevicePixels_data()
{
    QTest::addColumn<QByteArray>("scale");
    QTest::newRow("1.5") << QByteArray("1.5");
    QTest::newRow("2") << QByteArray("2");
}

/// The screen's scale is set per process, so the same tests run in a process with another scale.
void tst_progressRing::usesTheDevicePixels()
{
    QFETCH(QByteArray, scale);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    ScaledRuns::setScale(environment, QString::fromLatin1(scale));
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("uncoversASector"), QStringLiteral("everyPercentIsPaintedRight"),
                 QStringLiteral("stretchesItsPictures"), QStringLiteral("paintsOnlyOnItsLabel")});
    QVERIFY(child.waitForFinished(60000));
    const QByteArray output = child.readAll();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0,
             output.constData());
    QVERIFY2(output.contains(" 0 failed"), output.constData());
}

int main(int argc, char** argv)
{
    const TestHome home;
    ScaledRuns::enter();
    const TestApplication<QApplication> application(argc, argv);
    tst_progressRing test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_progressRing.moc"
