// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "MessageBar.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QLabel>
#include <QPalette>
#include <QRect>
#include <QStyle>

#include <memory>

/// Tests where the status bar draws its message, in both directions of layout.
class tst_MessageBar : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void messageBeginsAtTheEdge_data();
    void messageBeginsAtTheEdge();
    void longMessageEndsBesideThePermanentWidget_data() { messageBeginsAtTheEdge_data(); }
    void longMessageEndsBesideThePermanentWidget();

private:
    void show(const QString& message);
    QRect mirrored(const QRect& place) const;
    QRect drawn() const;

    std::unique_ptr<MessageBar> m_bar;
    QLabel* m_permanent = nullptr;
};

namespace {

constexpr int near = 12; // pixels between the message and what it is beside

} // namespace

void tst_MessageBar::cleanup()
{
    m_bar.reset();
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void tst_MessageBar::show(const QString& message)
{
    m_bar = std::make_unique<MessageBar>();
    QPalette colours;
    colours.setColor(QPalette::Window, Qt::white);
    colours.setColor(QPalette::WindowText, Qt::red);
    m_bar->setPalette(colours);
    m_bar->setSizeGripEnabled(false);
    m_permanent = new QLabel;
    m_permanent->setFixedWidth(100);
    m_bar->addPermanentWidget(m_permanent);
    m_bar->resize(400, 30);
    m_bar->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_bar.get()));
    m_bar->showMessage(message);
}

/// Returns a place as if the layout went from left to right.
QRect tst_MessageBar::mirrored(const QRect& place) const
{
    return QStyle::visualRect(QApplication::layoutDirection(), m_bar->rect(), place);
}

/// Returns the place of all pixels in the colour of the message.
QRect tst_MessageBar::drawn() const
{
    const QImage picture = m_bar->grab().toImage();
    QRect place;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            if (colour.red() > 200 && colour.green() < 100 && colour.blue() < 100)
                place |= QRect(x, y, 1, 1);
        }
    }
    return place;
}

void tst_MessageBar::messageBeginsAtTheEdge_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void tst_MessageBar::messageBeginsAtTheEdge()
{
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);
    const QString message = QStringLiteral("Ready");
    show(message);
    QCOMPARE(m_bar->shownMessage(), message);
    const QRect place = mirrored(drawn());
    QVERIFY2(place.width() > 20, "nothing is drawn");
    QVERIFY2(place.left() < near, qPrintable(QString::number(place.left())));
}

void tst_MessageBar::longMessageEndsBesideThePermanentWidget()
{
    QFETCH(Qt::LayoutDirection, direction);
    QApplication::setLayoutDirection(direction);
    show(QStringLiteral("The downloads ").repeated(20));
    QVERIFY2(m_bar->shownMessage().startsWith(QStringLiteral("The downloads")),
             qPrintable(m_bar->shownMessage()));
    QVERIFY(m_bar->shownMessage().endsWith(QChar(0x2026)));
    const QRect place = mirrored(drawn());
    const int gap = mirrored(m_permanent->geometry()).left() - place.right();
    QVERIFY2(gap > 0 && gap < 2 * near, qPrintable(QString::number(gap)));
    QVERIFY2(place.left() < near, qPrintable(QString::number(place.left())));
}

MV_WIDGET_TEST_MAIN(tst_MessageBar)
#include "tst_MessageBar.moc"
