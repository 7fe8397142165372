// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserSkin.h"
#include "browser/MVThemeItemWdg.h"
#include "FaceFixture.h"

#include <QHash>
#include <QProxyStyle>
#include <QStyleFactory>

/// Counts how often each widget gets its style. The style of a style sheet passes every polish on
/// to the style below it.
class CountingStyle : public QProxyStyle
{
    Q_OBJECT

public:
    CountingStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {
    }

    using QProxyStyle::polish;
    void polish(QWidget* widget) override
    {
        ++m_counts[widget];
        QProxyStyle::polish(widget);
    }
    void clear() { m_counts.clear(); }
    int count(QWidget* widget) const { return m_counts.value(widget); }

private:
    QHash<QWidget*, int> m_counts;
};

/// Tests that styling, which takes most of the time in which a cell is made, happens once.
class tst_cellStyling : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }
    void cleanup() { qApp->setStyleSheet(QString()); }

    void stylesEachPartOnce();

private:
    FaceFixture m_world;
};

void tst_cellStyling::stylesEachPartOnce()
{
    auto* const style = new CountingStyle;
    QApplication::setStyle(style); // becomes its owner
    qApp->setStyleSheet(BrowserSkin::styleSheet(QStringLiteral("Classical")));
    QWidget list;
    list.show();
    style->clear();

    auto* const cell = new MVThemeItemWdg(&list);
    const QList<QWidget*> parts = cell->findChildren<QWidget*>();
    QVERIFY(parts.size() > 20);
    cell->show();
    QCOMPARE(style->count(cell), 1);
    for (QWidget* const part : parts) {
        // The name is styled again with its property "IsChecked", on which its style depends.
        const int most = part->objectName() == QLatin1String("lblName") ? 2 : 1;
        QVERIFY2(style->count(part) <= most, qPrintable(part->objectName()));
    }
    const auto* const face = cell->findChild<MVThemeItemSubwdgt_Preview*>();
    QVERIFY(face && !face->progressImage().isNull()); // has its style
}

MV_WIDGET_TEST_MAIN(tst_cellStyling)

#include "tst_cellStyling.moc"
