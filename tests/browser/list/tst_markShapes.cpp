// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QEvent>
#include <QImage>

#include <memory>

namespace tst_markShapes {

/// Tests the signs and the places of the marks on cells, without a style sheet.
class tst_markShapes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void signsAreDrawn_data();
    void signsAreDrawn();
    void marksAreInTheCornerSideBySide();
    void marksAreRepaintedWhenTheHostSaysSo();

private:
    QWidget* marksOf(int row) const
    {
        return m_list->cell(row)->findChild<QWidget*>(QStringLiteral("marks"));
    }
    static QString textAt(QWidget* marks, const QPoint& point);

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int onDisk = 0; // rows
constexpr int missing = 1;
constexpr int outdatedAndNew = 2;
constexpr int failed = 3;

constexpr int diameter = 16; // of a mark
constexpr int gap = 3;       // between two marks

class PaintWatch : public QObject
{
public:
    bool hasPainted() const { return m_hasPainted; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_hasPainted = m_hasPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_hasPainted = false;
};

/// Returns the middle of a mark, whose sign is black on white, with "#" for a dark pixel.
QString shapeOf(const QImage& marks, int number)
{
    constexpr int top = 2;
    constexpr int bottom = 12;
    constexpr int left = 3;
    constexpr int right = 12;
    QStringList lines;
    for (int y = top; y <= bottom; ++y) {
        QString line;
        for (int x = left; x <= right; ++x) {
            const QRgb pixel = marks.pixel(number * (diameter + gap) + x, y);
            line.append(qGray(pixel) < 128 ? QLatin1Char('#') : QLatin1Char('.'));
        }
        lines.append(line);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

void tst_markShapes::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Ready"));
    m_world->addTheme(2, QStringLiteral("Missing"), BrowserWorld::OnServer);
    m_world->addTheme(3, QStringLiteral("Old"));
    m_world->addTheme(4, QStringLiteral("Failed"), BrowserWorld::OnServer);
    m_world->route(QStringLiteral("/config/Themes/4.zip"),
                   [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->view()->setMarksShown(true);
    m_list->view()->setUpdatable({CatalogueFiles::guid(3)});
    m_list->view()->setNew({CatalogueFiles::guid(3)});
    m_list->fill();
}

QString tst_markShapes::textAt(QWidget* marks, const QPoint& point)
{
    QString text;
    if (!QMetaObject::invokeMethod(marks, "textAt", Q_RETURN_ARG(QString, text),
                                   Q_ARG(QPoint, point)))
        QTest::qFail("the marks have no texts", __FILE__, __LINE__);
    return text;
}

void tst_markShapes::signsAreDrawn_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("shape");
    QTest::newRow("tick") << onDisk << 0
                          << QStringLiteral("..........\n"
                                            "..........\n"
                                            "..........\n"
                                            ".......##.\n"
                                            "......###.\n"
                                            "......##..\n"
                                            ".##..##...\n"
                                            "..####....\n"
                                            "...##.....\n"
                                            "..........\n"
                                            "..........");
    QTest::newRow("arrow") << missing << 0
                           << QStringLiteral("..........\n"
                                             "....##....\n"
                                             "....##....\n"
                                             "....##....\n"
                                             "..#.##.#..\n"
                                             "..######..\n"
                                             "...####...\n"
                                             "....##....\n"
                                             "..........\n"
                                             "..######..\n"
                                             "..######..");
    QTest::newRow("circle") << outdatedAndNew << 0
                            << QStringLiteral("......#...\n"
                                              "......##..\n"
                                              "...######.\n"
                                              "..#######.\n"
                                              ".##..###..\n"
                                              ".#........\n"
                                              ".#......#.\n"
                                              ".#......#.\n"
                                              ".##....##.\n"
                                              "..######..\n"
                                              "...####...");
    QTest::newRow("star") << outdatedAndNew << 1
                          << QStringLiteral("..........\n"
                                            "..........\n"
                                            "....##....\n"
                                            "....##....\n"
                                            "...####...\n"
                                            ".########.\n"
                                            ".########.\n"
                                            "...####...\n"
                                            "....##....\n"
                                            "....##....\n"
                                            "..........");
    QTest::newRow("exclamation mark") << failed << 0
                                      << QStringLiteral("..........\n"
                                                        "..........\n"
                                                        "....##....\n"
                                                        "....##....\n"
                                                        "....##....\n"
                                                        "....##....\n"
                                                        "....##....\n"
                                                        "..........\n"
                                                        "..........\n"
                                                        "....##....\n"
                                                        "..........");
}

void tst_markShapes::signsAreDrawn()
{
    QFETCH(int, row);
    QFETCH(int, number);
    QWidget* const marks = marksOf(row);
    if (row == failed) {
        m_list->click(frameOf(m_list->cell(row)));
        QTRY_COMPARE(textAt(marks, {1, 1}), QStringLiteral("Download failed"));
    }
    for (const char* name : {"plate", "accent", "alarm"})
        QVERIFY(marks->setProperty(name, QColor(Qt::white)));
    for (const char* name : {"sign", "onAccent", "onAlarm"})
        QVERIFY(marks->setProperty(name, QColor(Qt::black)));
    QTEST(shapeOf(marks->grab().toImage(), number), "shape");
}

void tst_markShapes::marksAreInTheCornerSideBySide()
{
    QWidget* const marks = marksOf(outdatedAndNew);
    QCOMPARE(marks->pos(), QPoint(4, 4));
    QCOMPARE(marks->size(), QSize(diameter + gap + diameter, diameter));
    QCOMPARE(textAt(marks, {diameter - 1, 0}), QStringLiteral("Update available"));
    QCOMPARE(textAt(marks, {diameter + 1, 0}), QString());
    QCOMPARE(textAt(marks, {diameter + gap, 0}), QStringLiteral("New"));
    QVERIFY(marks->setProperty("diameter", 30));
    QCOMPARE(marks->size(), QSize(30 + gap + 30, 30));
}

void tst_markShapes::marksAreRepaintedWhenTheHostSaysSo()
{
    QWidget* const marks = marksOf(onDisk);
    QTRY_VERIFY(marks->isVisible());
    QCoreApplication::processEvents();
    PaintWatch watch;
    marks->installEventFilter(&watch);
    m_list->view()->updateMarks();
    QTRY_VERIFY(watch.hasPainted());
}

MV_WIDGET_TEST_MAIN(tst_markShapes)

} // namespace tst_markShapes

#include "tst_markShapes.moc"
