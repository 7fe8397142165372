// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserSkin.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "SampleWorld.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QHash>

#include <algorithm>
#include <memory>

/// Tests a change of skin while lists are shown: BrowserSkin::apply() must give the same pictures
/// as QApplication::setStyleSheet(), in less time.
class tst_skinChange : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_world = std::make_unique<SampleWorld>(); }
    void cleanup() { BrowserSkin::apply({}); }
    void cleanupTestCase() { m_world.reset(); }

    void looksAsIfItHadAlwaysBeen_data();
    void looksAsIfItHadAlwaysBeen();
    void restylesEveryPartOnce();
    void takesLessTimeThanTheCells();
    void noneAndTheSameAreAllowed();

private:
    std::unique_ptr<SampleWorld> m_world;
};

namespace {

/// Counts how often the widgets of a window are restyled.
class RestyleCounter : public QObject
{
public:
    explicit RestyleCounter(QWidget& window)
    {
        const QList<QWidget*> parts = window.findChildren<QWidget*>();
        for (QWidget* const part : parts)
            part->installEventFilter(this);
    }
    int most() const
    {
        return m_counts.isEmpty() ? 0 : *std::max_element(m_counts.cbegin(), m_counts.cend());
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::StyleChange)
            ++m_counts[watched];
        return QObject::eventFilter(watched, event);
    }

private:
    QHash<QObject*, int> m_counts;
};

/// Shows one cell in each state that has a look of its own.
void showStates(const SampleList& list)
{
    list.cell(0)->showError(eDownLoadError_Internet);
    list.cell(1)->setSel(list.cell(1));
    QCoreApplication::processEvents();
}

QImage pictureOf(SampleList& list)
{
    QCoreApplication::processEvents();
    return list.window().grab().toImage();
}

} // namespace

void tst_skinChange::looksAsIfItHadAlwaysBeen_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const QStringList names = BrowserSkin::names();
    for (const int type : {UIItem_Themes, UIItem_Filters, UIItem_BgMaterial}) {
        for (int skin = 0; skin < names.size(); ++skin) {
            const QString next = names.at((skin + 1) % names.size());
            QTest::addRow("list %d, %s", type, qPrintable(names.at(skin)))
                << type << next << names.at(skin);
        }
    }
}

void tst_skinChange::looksAsIfItHadAlwaysBeen()
{
    QFETCH(int, type);
    QFETCH(QString, from);
    QFETCH(QString, to);
    const auto kind = static_cast<EUIItemType>(type);
    const QString sheet = BrowserSkin::styleSheet(to);
    QImage expected;
    {
        qApp->setStyleSheet(sheet);
        SampleList list(kind, {500, 400});
        showStates(list);
        expected = pictureOf(list);
    }
    BrowserSkin::apply(BrowserSkin::styleSheet(from));
    SampleList list(kind, {500, 400});
    showStates(list);
    QVERIFY(pictureOf(list) != expected);
    BrowserSkin::apply(sheet);
    QCOMPARE(qApp->styleSheet(), sheet);
    QCOMPARE(pictureOf(list), expected);
}

void tst_skinChange::restylesEveryPartOnce()
{
    constexpr int leavingAndEntering = 2; // the application's own style lies between
    BrowserSkin::apply(BrowserSkin::styleSheet(QStringLiteral("Calm")));
    SampleList list(UIItem_Themes, {500, 400});
    const RestyleCounter counter(list.window());
    BrowserSkin::apply(BrowserSkin::styleSheet(QStringLiteral("Elegance")));
    QCOMPARE(counter.most(), leavingAndEntering);
}

void tst_skinChange::takesLessTimeThanTheCells()
{
    BrowserSkin::apply(BrowserSkin::styleSheet(QStringLiteral("Calm")));
    const ProcessorTime makingTime;
    SampleList list(UIItem_Themes, {500, 400});
    const double making = makingTime.seconds();
    const ProcessorTime changeTime;
    BrowserSkin::apply(BrowserSkin::styleSheet(QStringLiteral("Elegance")));
    QCoreApplication::processEvents();
    const double change = changeTime.seconds();
    QVERIFY2(change <= 2 * making,
             qPrintable(QStringLiteral("%1 s after %2 s").arg(change).arg(making)));
}

void tst_skinChange::noneAndTheSameAreAllowed()
{
    BrowserSkin::apply({});
    QCOMPARE(qApp->styleSheet(), QString());
    const QString sheet = BrowserSkin::styleSheet(QStringLiteral("Calm"));
    BrowserSkin::apply(sheet);
    SampleList list(UIItem_Themes, {500, 400});
    const QImage before = pictureOf(list);
    BrowserSkin::apply(sheet);
    QCOMPARE(pictureOf(list), before);
    BrowserSkin::apply({});
    QCOMPARE(qApp->styleSheet(), QString());
    QVERIFY(pictureOf(list) != before);
}

MV_WIDGET_TEST_MAIN(tst_skinChange)
#include "tst_skinChange.moc"
