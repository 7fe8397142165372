// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemePreviewFrm.h"
#include "FaceFixture.h"

#include <QMovie>
#include <QSignalSpy>

#include <memory>

namespace {

const QByteArray willStop = QByteArrayLiteral("MVThemePreviewFrm 1: s_pMovie will stop!");
const QByteArray startInvalid =
    QByteArrayLiteral("MVThemePreviewFrm 1: startPlayGif m_movie.isValid() == false!");
const QByteArray stopInvalid =
    QByteArrayLiteral("MVThemePreviewFrm 1: stopPlayGif m_movie.isValid() == false!");

/// A preview frame and its item.
struct Cell
{
    explicit Cell(const SCfg_Item& shown)
        : item(shown)
    {
        frame.resize(20, 10);
        frame.setItemData(&item);
    }

    QMovie* movie() { return label()->movie(); }
    QLabel* label() { return part<QLabel>(frame, "stackedWidget/pagePreview/lblGif"); }
    QString page()
    {
        return part<QStackedWidget>(frame, "stackedWidget")->currentWidget()->objectName();
    }
    bool isPlaying() { return movie()->state() == QMovie::Running; }
    QColor colour() { return label()->grab().toImage().pixelColor(10, 5); }

    const SCfg_Item item;
    MVThemePreviewFrm frame{nullptr};
};

/// Records log lines and movie states, in order.
class Trace
{
public:
    Trace()
    {
        m_previous =
            setLogSink([this](const QByteArray& category, int level, const QByteArray& text) {
                entries.append(CatalogueFixture::line(level, text, category));
            });
    }
    ~Trace() { setLogSink(m_previous); }
    Q_DISABLE_COPY_MOVE(Trace)

    void watch(const QByteArray& name, Cell& cell)
    {
        QObject::connect(cell.movie(), &QMovie::stateChanged, &m_context,
                         [this, name](QMovie::MovieState state) {
                             entries.append(name
                                            + (state == QMovie::Running ? " starts" : " stops"));
                         });
    }

    QByteArrayList entries;

private:
    LogSink m_previous;
    QObject m_context;
};

/// Returns how many times this process has a file open.
int timesOpen(const QString& path)
{
    int count = 0;
    const QFileInfoList open = QDir(QStringLiteral("/proc/self/fd"))
                                   .entryInfoList(QDir::Files | QDir::System | QDir::Hidden);
    for (const QFileInfo& descriptor : open)
        count += descriptor.symLinkTarget() == path ? 1 : 0;
    return count;
}

const QString normal = QStringLiteral("pageNormal");
const QString preview = QStringLiteral("pagePreview");

} // namespace

/// Tests that previews play and stop, one at a time.
class tst_MVThemePreviewFrm_play : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void playsTheFramesOneAfterTheOther();
    void stoppingShowsTheThumbnail();
    void stoppingShowsTheThumbnailWhenTheFileHasGone();
    void beginsAnewEachTime();
    void hoveringAnotherStopsTheFirstBeforeItStarts();
    void aStoppedMovieIsStoppedOnceMore();
    void startingTwiceStartsAnew();
    void onlyTheLastOneKeepsPlaying();
    void onlyTwoKindsNeverPlay_data();
    void onlyTwoKindsNeverPlay();
    void anInvalidFileKeepsTheThumbnail_data();
    void anInvalidFileKeepsTheThumbnail();
    void anInvalidFileStopsTheOther();
    void aFailedStartIsNotRemembered();
    void withoutAnItemNothingPlays();
    void playsThePlaceholder();
    void aDestroyedMovieIsNotStopped();
    void theOtherPlaysOnWhenOneIsDestroyed();
    void closesTheFileWhenItStops();
    void anInvalidFileIsClosedToo();

private:
    FaceFixture m_world;
};

void tst_MVThemePreviewFrm_play::playsTheFramesOneAfterTheOther()
{
    Cell cell(m_world.completeItem());
    QCOMPARE(cell.page(), normal);
    cell.frame.startPlayGif();
    QCOMPARE(cell.page(), preview);
    QVERIFY(cell.isPlaying());
    QCOMPARE(cell.colour(), QColor(Qt::green));
    QTRY_COMPARE(cell.colour(), QColor(Qt::blue));
    QTRY_COMPARE(cell.colour(), QColor(Qt::green));
}

void tst_MVThemePreviewFrm_play::stoppingShowsTheThumbnail()
{
    Cell cell(m_world.completeItem());
    Trace trace;
    cell.frame.startPlayGif();
    cell.frame.stopPlayGif();
    QCOMPARE(cell.page(), normal);
    QVERIFY(!cell.isPlaying());
    QCOMPARE(trace.entries, QByteArrayList());
    cell.frame.stopPlayGif();
    QCOMPARE(cell.page(), normal);
    QCOMPARE(trace.entries, QByteArrayList());
}

void tst_MVThemePreviewFrm_play::stoppingShowsTheThumbnailWhenTheFileHasGone()
{
#ifdef Q_OS_WIN
    QSKIP("This system removes no file that is being played.");
#endif
    Cell cell(m_world.completeItem());
    cell.frame.startPlayGif();
    QVERIFY(cell.isPlaying());
    QVERIFY(QFile::remove(cell.movie()->fileName()));
    cell.frame.stopPlayGif();
    QCOMPARE(cell.page(), normal);
    QVERIFY(!cell.isPlaying());
}

void tst_MVThemePreviewFrm_play::beginsAnewEachTime()
{
    Cell cell(m_world.completeItem());
    cell.frame.startPlayGif();
    QTRY_COMPARE(cell.movie()->currentFrameNumber(), 1);
    cell.frame.stopPlayGif();
    cell.frame.startPlayGif();
    QCOMPARE(cell.movie()->currentFrameNumber(), 0);
    QCOMPARE(cell.colour(), QColor(Qt::green));
}

void tst_MVThemePreviewFrm_play::hoveringAnotherStopsTheFirstBeforeItStarts()
{
    Cell a(m_world.completeItem(eCfgItem_Theme, 1));
    Cell b(m_world.completeItem(eCfgItem_Theme, 2));
    Trace trace;
    trace.watch("A", a);
    trace.watch("B", b);
    a.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({"A starts"}));
    b.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({"A starts", willStop, "A stops", "B starts"}));
    QVERIFY(!a.isPlaying());
    QVERIFY(b.isPlaying());
    QCOMPARE(b.page(), preview);
}

void tst_MVThemePreviewFrm_play::aStoppedMovieIsStoppedOnceMore()
{
    Cell a(m_world.completeItem(eCfgItem_Theme, 1));
    Cell b(m_world.completeItem(eCfgItem_Theme, 2));
    Trace trace;
    trace.watch("A", a);
    trace.watch("B", b);
    a.frame.startPlayGif();
    a.frame.stopPlayGif();
    b.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({"A starts", "A stops", willStop, "B starts"}));
}

void tst_MVThemePreviewFrm_play::startingTwiceStartsAnew()
{
    Cell cell(m_world.completeItem());
    Trace trace;
    trace.watch("A", cell);
    cell.frame.startPlayGif();
    cell.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({"A starts", willStop, "A stops", "A starts"}));
    QVERIFY(cell.isPlaying());
    QCOMPARE(cell.page(), preview);
}

void tst_MVThemePreviewFrm_play::onlyTheLastOneKeepsPlaying()
{
    std::vector<std::unique_ptr<Cell>> cells;
    cells.reserve(5);
    for (int i = 0; i < 5; ++i)
        cells.push_back(std::make_unique<Cell>(m_world.completeItem(eCfgItem_Theme, i)));
    for (const std::unique_ptr<Cell>& started : cells) {
        started->frame.startPlayGif();
        for (const std::unique_ptr<Cell>& other : cells)
            QCOMPARE(other->isPlaying(), other == started);
    }
}

void tst_MVThemePreviewFrm_play::onlyTwoKindsNeverPlay_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("plays");
    QTest::newRow("filter") << 0 << false;
    QTest::newRow("transition") << 1 << true;
    QTest::newRow("motion") << 2 << true;
    QTest::newRow("theme") << 3 << true;
    QTest::newRow("background material") << 4 << false;
}

void tst_MVThemePreviewFrm_play::onlyTwoKindsNeverPlay()
{
    QFETCH(int, kind);
    QFETCH(bool, plays);
    const SCfg_Item theme = m_world.completeItem(eCfgItem_Theme, 2);
    Cell playing(theme);
    Cell cell(FaceFixture::item(static_cast<ECfgItemType>(kind)));
    cell.frame.setMoviePath(m_world.gifFile(theme));
    QVERIFY(cell.movie()->isValid());
    playing.frame.startPlayGif();

    Trace trace;
    cell.frame.startPlayGif();
    QCOMPARE(cell.page(), plays ? preview : normal);
    QCOMPARE(cell.isPlaying(), plays);
    QCOMPARE(playing.isPlaying(), !plays);
    QCOMPARE(trace.entries, plays ? QByteArrayList({willStop}) : QByteArrayList());
    part<QStackedWidget>(cell.frame, "stackedWidget")->setCurrentIndex(1);
    cell.frame.stopPlayGif();
    QCOMPARE(cell.page(), plays ? normal : preview);
}

void tst_MVThemePreviewFrm_play::anInvalidFileKeepsTheThumbnail_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("missing, no placeholder") << QByteArray();
    QTest::newRow("text") << QByteArray("no animation");
    QTest::newRow("zeros") << QByteArray(100, '\0');
}

void tst_MVThemePreviewFrm_play::anInvalidFileKeepsTheThumbnail()
{
    QFETCH(QByteArray, content);
    const SCfg_Item item = FaceFixture::item();
    if (!content.isEmpty())
        CatalogueFiles::write(m_world.gifFile(item), content);
    Cell cell(item);
    Trace trace;
    cell.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({startInvalid}));
    QCOMPARE(cell.page(), normal);
    QVERIFY(!cell.isPlaying());
    trace.entries.clear();
    cell.frame.stopPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({stopInvalid}));
    QCOMPARE(cell.page(), normal);
}

void tst_MVThemePreviewFrm_play::anInvalidFileStopsTheOther()
{
    Cell playing(m_world.completeItem(eCfgItem_Theme, 1));
    Cell invalid(FaceFixture::item(eCfgItem_Theme, 2));
    playing.frame.startPlayGif();
    Trace trace;
    trace.watch("A", playing);
    invalid.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({willStop, "A stops", startInvalid}));
}

void tst_MVThemePreviewFrm_play::aFailedStartIsNotRemembered()
{
    Cell invalid(FaceFixture::item(eCfgItem_Theme, 1));
    Cell valid(m_world.completeItem(eCfgItem_Theme, 2));
    invalid.frame.startPlayGif();
    Trace trace;
    valid.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList());
}

void tst_MVThemePreviewFrm_play::withoutAnItemNothingPlays()
{
    const SCfg_Item item = m_world.completeItem();
    MVThemePreviewFrm frame(nullptr);
    frame.setMoviePath(m_world.gifFile(item));
    Trace trace;
    frame.startPlayGif();
    frame.stopPlayGif();
    QCOMPARE(trace.entries, QByteArrayList());
    QCOMPARE(part<QStackedWidget>(frame, "stackedWidget")->currentIndex(), 0);
}

void tst_MVThemePreviewFrm_play::playsThePlaceholder()
{
    CatalogueFiles::write(hostSettings().testOutputDir + QStringLiteral("/testskin/Simple.gif"),
                          GifFile::plain({20, 10}, {Qt::red, Qt::blue}, 20));
    Cell cell(FaceFixture::item());
    cell.frame.startPlayGif();
    QCOMPARE(cell.page(), preview);
    QCOMPARE(cell.colour(), QColor(Qt::red));
    QTRY_COMPARE(cell.colour(), QColor(Qt::blue));
}

void tst_MVThemePreviewFrm_play::aDestroyedMovieIsNotStopped()
{
    auto destroyed = std::make_unique<Cell>(m_world.completeItem(eCfgItem_Theme, 1));
    Cell next(m_world.completeItem(eCfgItem_Theme, 2));
    destroyed->frame.startPlayGif();
    destroyed.reset();
    Trace trace;
    next.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList());
    QVERIFY(next.isPlaying());
}

void tst_MVThemePreviewFrm_play::theOtherPlaysOnWhenOneIsDestroyed()
{
    Cell a(m_world.completeItem(eCfgItem_Theme, 1));
    auto b = std::make_unique<Cell>(m_world.completeItem(eCfgItem_Theme, 2));
    b->frame.startPlayGif();
    a.frame.startPlayGif();
    b.reset();
    QVERIFY(a.isPlaying());
    Trace trace;
    a.frame.startPlayGif();
    QCOMPARE(trace.entries, QByteArrayList({willStop}));
}

void tst_MVThemePreviewFrm_play::closesTheFileWhenItStops()
{
#ifdef Q_OS_WIN
    QSKIP("This system does not list the open files of a process.");
#endif
    Cell cell(m_world.completeItem());
    const QString file = m_world.gifFile(cell.item);
    QCOMPARE(timesOpen(file), 0);
    cell.frame.startPlayGif();
    QCOMPARE(timesOpen(file), 1);
    QTRY_COMPARE(cell.movie()->currentFrameNumber(), 1);
    cell.frame.stopPlayGif();
    QCOMPARE(timesOpen(file), 0);
    cell.frame.startPlayGif();
    QVERIFY(cell.isPlaying());
    cell.frame.stopPlayGif();
    QCOMPARE(timesOpen(file), 0);
}

void tst_MVThemePreviewFrm_play::anInvalidFileIsClosedToo()
{
    const SCfg_Item item = FaceFixture::item();
    CatalogueFiles::write(m_world.gifFile(item), "no animation");
    Cell cell(item);
    cell.frame.startPlayGif();
    QCOMPARE(timesOpen(m_world.gifFile(item)), 0);
    cell.frame.stopPlayGif();
    QCOMPARE(timesOpen(m_world.gifFile(item)), 0);
}

MV_WIDGET_TEST_MAIN(tst_MVThemePreviewFrm_play)
#include "tst_MVThemePreviewFrm_play.moc"
