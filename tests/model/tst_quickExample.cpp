// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "model/ResourceModel.h"
#include "support/CatalogueFiles.h"
#include "support/FaultServer.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"
#include "support/TestPictures.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QUrl>

#include <atomic>
#include <memory>

/// Tests examples/quick on a real server, with the software renderer: mouse and keyboard.
class tst_quickExample : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void programNeedsItsArguments();
    void clickDownloadsAndApplies();
    void ringCancelsTheDownload();
    void heartMarksAFavourite();
    void pointerPlaysThePreview();
    void keyboardMovesAppliesAndMarks();
    void searchNarrowsTheGrid();
    void picture();

private:
    QQuickItem* cell(const char* name) const;
    QQuickItem* part(QQuickItem* cell, const char* name) const;
    QPoint centreOf(const QQuickItem* item) const;
    QString applied() const { return m_window->property("appliedGuid").toString(); }
    bool isQuiet() const;
    QImage grabbed() const;

    void answer(HttpExchange& exchange);

    std::atomic<bool> m_isHolding{false};
    std::atomic<int> m_held{0};
    FaultServer m_server{[this](HttpExchange& exchange) { answer(exchange); }};
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow* m_window = nullptr; // the engine's
};

namespace {

constexpr int longestWaitMs = 30000;
const QString christmas = QStringLiteral("{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}");

QQuickItem* findItem(QQuickItem* parent, const QString& name)
{
    if (parent->objectName() == name)
        return parent;
    const QList<QQuickItem*> children = parent->childItems();
    for (QQuickItem* const child : children) {
        if (QQuickItem* const found = findItem(child, name))
            return found;
    }
    return nullptr;
}

} // namespace

/// Answers from the samples; while downloads are held, every third archive stops in the middle.
void tst_quickExample::answer(HttpExchange& exchange)
{
    const QByteArray target = exchange.request().target;
    const QString path = QStringLiteral(MV_SAMPLES "/server") + QUrl::fromPercentEncoding(target);
    if (!QFileInfo(path).isFile()) {
        exchange.answer(HttpAnswer(404).body("not here"));
        return;
    }
    const QByteArray content = CatalogueFiles::read(path);
    if (!m_isHolding || !path.endsWith(text(".zip")) || ++m_held % 3 != 0) {
        exchange.answer(HttpAnswer(200).body(content));
        return;
    }
    exchange.answer(HttpAnswer(200)
                        .field("Content-Length", QByteArray::number(content.size()))
                        .bareBody(content.left(content.size() / 2)));
    exchange.stall();
}

void tst_quickExample::init()
{
    HostSettings& settings = hostSettings();
    const HostSettings given = settings;
    settings = HostSettings::recommended();
    settings.resourcesPath = QStringLiteral(MV_SAMPLES "/installed");
    settings.dataLocation = given.dataLocation;
    settings.appDataPath = given.appDataPath;
    settings.productParams[text("hasMV")] = text("1");
    settings.productParams[text("url_themeRootDir")] = m_server.url(text("/"));
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_engine->addImportPath(QStringLiteral(MV_QML_FOLDER));
    m_engine->setInitialProperties({{text("downloadFolder"), home(QTest::currentTestFunction())}});
    m_engine->load(QUrl(text("qrc:/quick/Main.qml")));
    QVERIFY(!m_engine->rootObjects().isEmpty());
    m_window = qobject_cast<QQuickWindow*>(m_engine->rootObjects().constFirst());
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
    QCOMPARE(m_window->rendererInterface()->graphicsApi(), QSGRendererInterface::Software);
    QTRY_VERIFY_WITH_TIMEOUT(isQuiet(), longestWaitMs);
}

void tst_quickExample::cleanup()
{
    m_isHolding = false;
    m_engine.reset();
    m_window = nullptr;
}

/// Returns whether the check has ended and all thumbnails in view are shown.
bool tst_quickExample::isQuiet() const
{
    const QQuickItem* const status = findItem(m_window->contentItem(), text("status"));
    const QVariant first = cell("White Christmas")
        ? part(cell("White Christmas"), "thumbnail")->property("status")
        : QVariant();
    return status->property("text").toString() == text("15 themes") && first.toInt() == 1;
}

QQuickItem* tst_quickExample::cell(const char* name) const
{
    return findItem(m_window->contentItem(), QStringLiteral("cell %1").arg(text(name)));
}

QQuickItem* tst_quickExample::part(QQuickItem* cell, const char* name) const
{
    return findItem(cell, text(name));
}

QPoint tst_quickExample::centreOf(const QQuickItem* item) const
{
    return item->mapToScene({item->width() / 2, item->height() / 2}).toPoint();
}

void tst_quickExample::programNeedsItsArguments()
{
    QProcess quick;
    quick.start(QStringLiteral(QUICK_PROGRAM), QStringList());
    QVERIFY(quick.waitForFinished(longestWaitMs));
    QCOMPARE(quick.exitCode(), 2);
    QVERIFY(quick.readAllStandardError().contains("usage: quick"));
}

void tst_quickExample::clickDownloadsAndApplies()
{
    QQuickItem* const theme = cell("White Christmas");
    QVERIFY(!theme->property("usable").toBool());
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(theme));
    QVERIFY(theme->property("busy").toBool());
    QVERIFY(part(theme, "ring")->isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(applied(), christmas, longestWaitMs);
    QVERIFY(!theme->property("busy").toBool());
    QVERIFY(theme->property("usable").toBool());
    QVERIFY(theme->property("applied").toBool());
    QVERIFY(!part(theme, "ring")->isVisible());
}

void tst_quickExample::ringCancelsTheDownload()
{
    m_isHolding = true;
    QQuickItem* const theme = cell("Birthday Party");
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(theme));
    QTRY_VERIFY_WITH_TIMEOUT(theme->property("progress").toInt() > 10, longestWaitMs);
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(part(theme, "ring")));
    QTRY_VERIFY(!theme->property("busy").toBool());
    QVERIFY(!theme->property("usable").toBool());
    QCOMPARE(applied(), QString());
}

void tst_quickExample::heartMarksAFavourite()
{
    QQuickItem* const theme = cell("Lantern Night");
    for (const bool isMarked : {true, false}) {
        QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(part(theme, "favourite")));
        QCOMPARE(theme->property("favourite").toBool(), isMarked);
    }
    QCOMPARE(applied(), QString());
}

void tst_quickExample::pointerPlaysThePreview()
{
    QQuickItem* const theme = cell("White Christmas");
    QQuickItem* const preview = part(theme, "preview");
    QTest::mouseMove(m_window, QPoint(2, 2)); // wherever the last test has left it
    QTRY_VERIFY(preview->property("source").toUrl().isEmpty());
    QTest::mouseMove(m_window, centreOf(theme));
    QTRY_VERIFY(preview->property("source").toUrl().toLocalFile().endsWith(text(".gif")));
    QTRY_VERIFY_WITH_TIMEOUT(preview->property("currentFrame").toInt() > 0, longestWaitMs);
    QTest::mouseMove(m_window, QPoint(2, 2));
    QTRY_VERIFY(preview->property("source").toUrl().isEmpty());
}

void tst_quickExample::keyboardMovesAppliesAndMarks()
{
    auto* const grid = findItem(m_window->contentItem(), text("grid"));
    QTRY_VERIFY(grid->hasActiveFocus());
    QTest::keyClick(m_window, Qt::Key_Right);
    QTRY_COMPARE(grid->property("currentIndex").toInt(), 1);
    auto* const current = grid->property("currentItem").value<QQuickItem*>();
    QVERIFY(!current->property("favourite").toBool());
    QTest::keyClick(m_window, Qt::Key_F);
    QVERIFY(current->property("favourite").toBool());
    QTest::keyClick(m_window, Qt::Key_F);
    QVERIFY(!current->property("favourite").toBool());
    QTest::keyClick(m_window, Qt::Key_Space);
    QTRY_VERIFY(!part(current, "preview")->property("source").toUrl().isEmpty());
    QTest::keyClick(m_window, Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(current->property("applied").toBool(), longestWaitMs);
}

void tst_quickExample::searchNarrowsTheGrid()
{
    auto* const grid = findItem(m_window->contentItem(), text("grid"));
    auto* const search = findItem(m_window->contentItem(), text("search"));
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(search));
    for (const char letter : {'c', 'h', 'r', 'i', 's', 't'})
        QTest::keyClick(m_window, letter);
    QTRY_COMPARE(grid->property("count").toInt(), 1);
    QVERIFY(cell("White Christmas"));
    QTest::keyClick(m_window, Qt::Key_Escape);
    QTRY_COMPARE(grid->property("count").toInt(), 15);
}

/// On request also writes build/screenshots/quick.png.
void tst_quickExample::picture()
{
    QQuickItem* const favourite = part(cell("Lantern Night"), "favourite");
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(favourite));
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(cell("White Christmas")));
    QTRY_COMPARE_WITH_TIMEOUT(applied(), christmas, longestWaitMs);
    m_isHolding = true;
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(cell("Desert Caravan")));
    QTRY_VERIFY_WITH_TIMEOUT(cell("Desert Caravan")->property("progress").toInt() > 40,
                             longestWaitMs);
    QTest::mouseMove(m_window, QPoint(2, 2));
    const QImage image = grabbed();
    QTest::mouseClick(m_window, Qt::LeftButton, {}, centreOf(favourite));
    QCOMPARE(image.size(), m_window->size());
    // The thumbnail is there, over the colour of the card.
    const QPoint centre = centreOf(part(cell("White Christmas"), "thumbnail"));
    QVERIFY(image.pixelColor(centre) != image.pixelColor(2, image.height() / 2));
    if (TestPictures::areWanted()) {
        QVERIFY(QDir().mkpath(QStringLiteral(MV_SCREENSHOTS)));
        QVERIFY(image.save(QStringLiteral(MV_SCREENSHOTS "/quick.png")));
    }
}

/// Grabs the content, since the offscreen platform has no picture of the window itself.
QImage tst_quickExample::grabbed() const
{
    const QSharedPointer<QQuickItemGrabResult> result = m_window->contentItem()->grabToImage();
    bool isReady = false;
    connect(result.data(), &QQuickItemGrabResult::ready, this, [&isReady] { isReady = true; });
    if (!QTest::qWaitFor([&isReady] { return isReady; }, longestWaitMs))
        return {};
    QImage image(m_window->size(), QImage::Format_RGB32);
    image.fill(m_window->color());
    QPainter(&image).drawImage(0, 0, result->image());
    return image;
}

int main(int argc, char** argv)
{
    const TestHome home;
    qputenv("QT_QUICK_BACKEND", "software");
    TestApplication<QGuiApplication> application(argc, argv);
    tst_quickExample test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_quickExample.moc"
