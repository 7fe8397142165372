// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RingFixture.h"

#include <QPainter>

namespace {

/// A widget that paints a text on green, as the reference for the ring.
class Reference : public QWidget
{
public:
    Reference(const QSize& size, const QString& text, const QFont& font, const QColor& colour)
        : m_text(text)
        , m_font(font)
        , m_colour(colour)
    {
        setFixedSize(size);
    }
    QImage paint() { return grab().toImage().convertToFormat(QImage::Format_RGB32); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::green);
        painter.setPen(m_colour);
        painter.setFont(m_font);
        painter.drawText(rect(), int(Qt::AlignHCenter) | int(Qt::AlignVCenter), m_text);
    }

private:
    QString m_text;
    QFont m_font;
    QColor m_colour;
};

QImage reference(const RingFixture& ring, const QString& text, int pointSize,
                 const QColor& colour = Qt::black)
{
    QFont font = ring.face.font();
    font.setPointSize(pointSize);
    return Reference(ring.icon->size(), text, font, colour).paint();
}

} // namespace

/// Tests the percentage text of the progress ring.
class tst_progressText : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void showsTheValue_data();
    void showsTheValue();
    void hasItsColour_data();
    void hasItsColour();
    void hasItsSize_data();
    void hasItsSize();
    void withoutASizeItHasThatOfTheWidget_data();
    void withoutASizeItHasThatOfTheWidget();
    void hasTheFontOfTheWidget();
    void isCentredInAnyRing_data();
    void isCentredInAnyRing();
    void liesOverTheSector();

private:
    FaceFixture m_world;
};

void tst_progressText::showsTheValue_data()
{
    QTest::addColumn<double>("progress");
    QTest::addColumn<QString>("text");
    QTest::newRow("-3") << -3.0 << QStringLiteral("-3%");
    QTest::newRow("0") << 0.0 << QStringLiteral("0%");
    QTest::newRow("1") << 1.0 << QStringLiteral("1%");
    QTest::newRow("42") << 42.0 << QStringLiteral("42%");
    QTest::newRow("99.9") << 99.9 << QStringLiteral("99%");
    QTest::newRow("-0.5") << -0.5 << QStringLiteral("0%");
    QTest::newRow("100") << 100.0 << QStringLiteral("100%");
    QTest::newRow("150") << 150.0 << QStringLiteral("150%");
}

void tst_progressText::showsTheValue()
{
    QFETCH(double, progress);
    QFETCH(QString, text);
    RingFixture ring;
    ring.face.setProgressImage(RingFixture::plain(Qt::green));
    ring.face.setProgressColor(Qt::black);
    QCOMPARE(ring.paint(progress), reference(ring, text, 9));
}

void tst_progressText::hasItsColour_data()
{
    QTest::addColumn<QColor>("colour");
    QTest::addColumn<QColor>("painted");
    QTest::newRow("white") << QColor(Qt::white) << QColor(Qt::white);
    QTest::newRow("red") << QColor(Qt::red) << QColor(Qt::red);
    QTest::newRow("half transparent") << QColor(255, 0, 0, 128) << QColor(255, 0, 0, 128);
    QTest::newRow("none") << QColor() << QColor(Qt::black);
}

void tst_progressText::hasItsColour()
{
    QFETCH(QColor, colour);
    QFETCH(QColor, painted);
    RingFixture ring;
    ring.face.setProgressColor(colour);
    QCOMPARE(ring.paint(0), reference(ring, QStringLiteral("0%"), 9, painted));
}

void tst_progressText::hasItsSize_data()
{
    QTest::addColumn<double>("zoom");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("painted");
    QTest::newRow("default") << 1.0 << 9 << 9;
    QTest::newRow("larger") << 1.0 << 20 << 20;
    QTest::newRow("smallest") << 1.0 << 1 << 1;
    QTest::newRow("enlarged") << 2.0 << 9 << 18;
    QTest::newRow("cut, not rounded") << 1.3 << 9 << 11;
    QTest::newRow("13.5 is cut") << 1.5 << 9 << 13;
}

void tst_progressText::hasItsSize()
{
    QFETCH(double, zoom);
    QFETCH(int, size);
    QFETCH(int, painted);
    hostSettings().zoomDPI = zoom;
    RingFixture ring;
    ring.face.setProgressColor(Qt::black);
    ring.face.setProgressFontSize(size);
    QCOMPARE(ring.paint(0), reference(ring, QStringLiteral("0%"), painted));
}

void tst_progressText::withoutASizeItHasThatOfTheWidget_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
}

void tst_progressText::withoutASizeItHasThatOfTheWidget()
{
    QFETCH(int, size);
    RingFixture ring;
    QFont font = ring.face.font();
    font.setPointSize(15);
    ring.face.setFont(font);
    ring.face.setProgressColor(Qt::black);
    ring.face.setProgressFontSize(size);
    QCOMPARE(ring.paint(0), reference(ring, QStringLiteral("0%"), 15));
}

void tst_progressText::hasTheFontOfTheWidget()
{
    RingFixture ring;
    ring.face.setProgressColor(Qt::black);
    const QImage before = ring.paint(0);
    QFont font(QStringLiteral("DejaVu Serif"));
    font.setBold(true);
    ring.face.setFont(font);
    QVERIFY(ring.paint(0) != before);
    QCOMPARE(ring.paint(0), reference(ring, QStringLiteral("0%"), 9));
}

void tst_progressText::isCentredInAnyRing_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(120, 40);
    QTest::newRow("tall") << QSize(40, 120);
    QTest::newRow("odd") << QSize(61, 59);
    QTest::newRow("smaller than the text") << QSize(14, 8);
}

void tst_progressText::isCentredInAnyRing()
{
    QFETCH(QSize, size);
    RingFixture ring(size);
    ring.face.setProgressImage(RingFixture::plain(Qt::green));
    ring.face.setProgressColor(Qt::black);
    QCOMPARE(ring.paint(57), reference(ring, QStringLiteral("57%"), 9));
}

void tst_progressText::liesOverTheSector()
{
    RingFixture ring;
    ring.face.setProgressColor(Qt::black);
    ring.face.setProgressFontSize(24);
    const QImage painted = ring.paint(100);
    int black = 0;
    for (int y = 15; y < 45; ++y) {
        for (int x = 0; x < 60; ++x)
            black += painted.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
    }
    QVERIFY(black > 50);
}

MV_WIDGET_TEST_MAIN(tst_progressText)
#include "tst_progressText.moc"
