// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SkinFacts.h"

#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "SampleWorld.h"
#include "SkinLook.h"
#include "support/TestLetters.h"
#include "support/TextRoom.h"

#include <QLabel>
#include <QMovie>
#include <QSet>
#include <QTest>
#include <QToolButton>

#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr int legiblePixels = 12; // 9 points at 96 dots per inch

QLabel& label(const MVThemeItemWdg* cell, const char* name)
{
    return *qobject_cast<QLabel*>(partOf(cell, name));
}

QWidget* pictureOf(const MVThemeItemWdg* cell)
{
    return partOf(cell, "pageShow")
        ->findChild<QWidget*>(QStringLiteral("frmBtns_theme"))
        ->parentWidget();
}

int colourCount(const QImage& picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colours.insert(picture.pixel(x, y));
    }
    return colours.size();
}

/// Returns the mean difference of two pictures of equal size, from 0 to 255.
double difference(const QImage& a, const QImage& b)
{
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = a.pixel(x, y);
            const QRgb other = b.pixel(x, y);
            sum += qAbs(qRed(one) - qRed(other)) + qAbs(qGreen(one) - qGreen(other))
                + qAbs(qBlue(one) - qBlue(other));
        }
    }
    return static_cast<double>(sum) / (3 * a.width() * a.height());
}

/// Returns a pixel of the cell's frame, halfway down its left side.
QColor frameColour(QWidget& window, const MVThemeItemWdg* cell)
{
    const QRect frame = placeOf(partOf(cell, "MVThemeItemWdgBg"));
    const QPoint beside(frame.left() - 1, frame.center().y());
    return window.grab(QRect(beside, QSize(1, 1))).toImage().pixelColor(0, 0);
}

QColor captionColour(QWidget& window, const MVThemeItemWdg* cell)
{
    return mainColour(seenPart(window, *partOf(cell, "frmInfo")));
}

} // namespace

int shownPercent(const MVThemeItemWdg* cell)
{
    auto* const face = cell->findChild<MVThemeItemSubwdgt_Preview*>();
    const QImage ring = face->progressImage();
    const QColor reached = ring.pixelColor(ring.width() / 2, ring.height() / 16);
    const QImage shown = partOf(cell, "lblIcon")->grab().toImage();
    const double middle = shown.width() / 2.0;
    const double radius = shown.width() * 7.0 / 16;
    int percent = 0;
    for (int at = 1; at < 100; at += 2) {
        const double angle = 2 * pi * at / 100;
        const int x = static_cast<int>(middle + radius * std::sin(angle));
        const int y = static_cast<int>(middle - radius * std::cos(angle));
        if (shown.pixelColor(x, y) == reached)
            percent = at + 1;
    }
    return percent;
}

void SkinFacts::cellsAreAligned() const
{
    const MVThemeItemWdg* const first = m_list.cell(0);
    QSize size;
    QRect padding;
    m_list.view().getItemSIze(size, padding);
    int lines = 1;
    for (int row = 0; row < m_list.count(); ++row) {
        const MVThemeItemWdg* const cell = m_list.cell(row);
        QVERIFY(cell);
        QCOMPARE(cell->size(), first->size());
        const QWidget* const frame = partOf(cell, "MVThemeItemWdgBg");
        QCOMPARE(frame->geometry(), QRect(QPoint(padding.height(), padding.x()), size));
        if (row == 0)
            continue;
        const QPoint step = cell->pos() - m_list.cell(row - 1)->pos();
        if (step.y() == 0) {
            QCOMPARE(step.x(), first->width());
        } else {
            QCOMPARE(step.y(), first->height());
            QCOMPARE(cell->x(), first->x());
            ++lines;
        }
    }
    QVERIFY(lines > 1);
}

void SkinFacts::overlaysLieInTheirCells() const
{
    for (int row = 0; row < m_list.count(); ++row) {
        const MVThemeItemWdg* const cell = m_list.cell(row);
        if (!pictureOf(cell)->isVisible())
            continue;
        const QRect picture = placeOf(pictureOf(cell));
        QVERIFY(placeOf(partOf(cell, "MVThemeItemWdgBg")).contains(picture));
        QVector<QRect> taken;
        for (const char* name :
             {"btnCollect", "btnCollect_No", "btnDownload", "frmNetError", "lblCur"}) {
            const QWidget* const part = partOf(cell, name);
            if (!part->isVisible())
                continue;
            const QRect place = placeOf(part);
            QVERIFY2(picture.contains(place), name);
            for (const QRect& other : qAsConst(taken))
                QVERIFY2(!place.intersects(other), name);
            taken.append(place);
        }
    }
}

void SkinFacts::namesAreLegible() const
{
    for (int row = 0; row < m_list.count(); ++row) {
        const MVThemeItemWdg* const cell = m_list.cell(row);
        const QLabel& name = label(cell, "lblName");
        if (name.text().isEmpty() || !m_list.view().rect().contains(placeOf(cell)))
            continue;
        QVERIFY(name.fontInfo().pixelSize() >= legiblePixels);
        QVERIFY2(textContrast(m_list.window(), name) >= legible, qPrintable(name.text()));
        QVERIFY(name.contentsRect().height() >= name.fontMetrics().height());
        // The text is centred, and the mark must not shift it.
        QVERIFY(qAbs(placeOf(&name).center().x() - placeOf(cell).center().x()) <= 1);
        QCOMPARE(name.pos(), label(m_list.cell(0), "lblName").pos());
    }
}

void SkinFacts::appliedCellStandsOut(int applied, int other) const
{
    const MVThemeItemWdg* const cell = m_list.cell(applied);
    QLabel& mark = label(cell, "lblCur");
    QVERIFY(mark.isVisible());
    QVERIFY(holdsItsText(mark));
    QVERIFY(textContrastOnPictures(mark, mark) >= legible);
    QVERIFY(partOf(cell, "lblImg")->isVisible());
    QVERIFY(colourCount(drawnOn(*partOf(cell, "lblImg"), Qt::gray)) > 3);
    const MVThemeItemWdg* const plain = m_list.cell(other);
    QVERIFY(contrast(frameColour(m_list.window(), cell), frameColour(m_list.window(), plain)) > 3);
    const QLabel& plainName = label(plain, "lblName");
    QVERIFY(label(cell, "lblName").palette().color(QPalette::WindowText)
            != plainName.palette().color(QPalette::WindowText));
}

void SkinFacts::hoveredCellStandsOut(int hovered, int other) const
{
    QWidget& window = m_list.window();
    QVERIFY(captionColour(window, m_list.cell(hovered))
            != captionColour(window, m_list.cell(other)));
    QVERIFY(frameColour(window, m_list.cell(hovered)) != frameColour(window, m_list.cell(other)));
}

void SkinFacts::buttonsShow(int row, const char* name) const
{
    const MVThemeItemWdg* const cell = m_list.cell(row);
    for (const char* button : {"btnCollect", "btnCollect_No", "btnDownload"})
        QCOMPARE(partOf(cell, button)->isVisible(), qstrcmp(button, name) == 0);
    QWidget& shown = *partOf(cell, name);
    QCOMPARE(shown.width(), shown.height());
    QVERIFY(placeOf(pictureOf(cell)).right() - placeOf(&shown).right() <= 4);
    for (const QColor& ground : {QColor(Qt::white), QColor(Qt::black)}) {
        const QImage picture = drawnOn(shown, ground);
        const QColor middle = mainColour(picture);
        double most = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                most = qMax(most, contrast(picture.pixelColor(x, y), middle));
        }
        // Graphical objects need less contrast than text.
        QVERIFY2(most >= 3, name);
    }
}

void SkinFacts::ringIsCentred(int row) const
{
    const MVThemeItemWdg* const cell = m_list.cell(row);
    const QWidget* const ring = partOf(cell, "lblIcon");
    QVERIFY(ring->isVisible());
    QCOMPARE(ring->width(), ring->height());
    const QRectF page(placeOf(partOf(cell, "pageDownload")));
    const QRectF place(placeOf(ring));
    QVERIFY(page.contains(place));
    QVERIFY(qAbs(page.center().x() - place.center().x()) <= 0.5);
    QVERIFY(qAbs(page.center().y() - place.center().y()) <= 0.5);

    const auto* face = cell->findChild<MVThemeItemSubwdgt_Preview*>();
    QVERIFY(!face->progressImage().isNull());
    QVERIFY(!face->progressMask().isNull());
    QVERIFY(face->progressImage().width() <= 112);
    const QColor page1 = mainColour(seenPart(m_list.window(), *partOf(cell, "frmBg")));
    QVERIFY(contrast(face->progressColor(), page1) >= legible);
    const QImage mask = face->progressMask();
    const QImage image = face->progressImage();
    const QPoint onRing(image.width() / 2, image.height() / 16);
    QVERIFY(contrast(image.pixelColor(onRing), page1) >= 3);
    QVERIFY(image.pixelColor(onRing) != mask.pixelColor(onRing));
    // The sector ends at the circle: nothing is painted in the corners.
    QCOMPARE(seenPart(m_list.window(), *ring).pixelColor(1, 1), page1);

    QFont font = face->font();
    font.setPointSize(face->progressFontSize());
    QVERIFY(QFontMetrics(font).horizontalAdvance(QStringLiteral("100%")) <= ring->width() * 3 / 4);
}

void SkinFacts::errorIsLegible(int row) const
{
    const MVThemeItemWdg* const cell = m_list.cell(row);
    QWidget& overlay = *partOf(cell, "frmNetError");
    for (const char* name : {"lblNetErrorTitle", "lblNetError"}) {
        const QLabel& text = label(cell, name);
        QVERIFY2(holdsItsText(text), name);
        QVERIFY2(textContrastOnPictures(overlay, text) >= legible, name);
    }
}

void SkinFacts::animationPlays(int row) const
{
    const QLabel& animation = label(m_list.cell(row), "lblGif");
    QVERIFY(animation.isVisible());
    QCOMPARE(animation.movie()->state(), QMovie::Running);
    // The picture is complete, not cropped at the sides.
    QLabel& shown = label(m_list.cell(row), "lblGif");
    const QImage frame = animation.movie()->currentPixmap().toImage();
    const QImage picture = shown.grab().toImage().scaled(frame.size(), Qt::IgnoreAspectRatio,
                                                         Qt::SmoothTransformation);
    QVERIFY(frame.width() > shown.width());
    QVERIFY2(difference(picture, frame) < 6,
             qPrintable(QString::number(difference(picture, frame))));
}

void SkinFacts::moreIsLegible(int row) const
{
    const MVThemeItemWdg* const cell = m_list.cell(row);
    m_list.view().scrollToBottom();
    const QLabel& more = label(cell, "lblMore");
    QVERIFY(more.isVisible());
    QVERIFY(more.fontInfo().pixelSize() >= legiblePixels);
    QVERIFY(holdsItsText(more));
    QVERIFY(textContrast(m_list.window(), more) >= legible);
    QWidget& button = *partOf(cell, "btnMore");
    const QImage picture = drawnOn(button, Qt::gray);
    QVERIFY(colourCount(picture) > 3);
    SampleList::hover(cell);
    QTRY_VERIFY(button.underMouse());
    QVERIFY(drawnOn(button, Qt::gray) != picture);
}

void SkinFacts::holdsItsTexts(const MVThemeItemWdg* cell, const QString& language)
{
    int texts = 0;
    const QList<QLabel*> labels = cell->findChildren<QLabel*>();
    for (const QLabel* text : labels) {
        if (!text->isVisible() || text->text().isEmpty()
            || text->objectName() == QLatin1String("lblName"))
            continue;
        verifyHasFont(text->text());
        QVERIFY2(holdsItsText(*text), qPrintable(language + QLatin1Char(' ') + text->text()));
        ++texts;
    }
    QVERIFY(texts > 0);
}
