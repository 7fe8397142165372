// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "SourceWatch.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>

#include <csignal>
#include <functional>

namespace {

constexpr int longestMs = 60000;

} // namespace

using Change = std::function<void(const SmallSource&)>;
Q_DECLARE_METATYPE(Change)

/// Tests mvpublish watch, and how it notices changes.
class TestMvpublishWatch : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void buildsAgainAfterAChange_data();
    void buildsAgainAfterAChange();
    void faultLeavesTheTreeUntilItIsMended();
    void interruptEndsItCleanly();
    void takesTheOptionsOfABuild();
    void missingSourceIsAFailure();
    void lostSourceEndsIt();
    void changesOfOneMomentCountOnce();
    void changeDuringTheLookIsNotLost();

private:
    /// Starts watching, and waits for the first build.
    void start(const QStringList& options = {});
    /// Waits until the program has printed a text so many times.
    bool shows(const char* shown, int count = 1);
    /// Interrupts the program. Returns whether it has ended in an orderly way, where it can.
    bool endsWell();

    SmallSource m_source{home("source")};
    QString m_out = home("out");
    QProcess m_process;
    QByteArray m_written;
};

void TestMvpublishWatch::cleanup()
{
    m_process.kill();
    m_process.waitForFinished();
    m_written.clear();
    QDir(m_out).removeRecursively();
    m_source = SmallSource(home("source"));
}

void TestMvpublishWatch::start(const QStringList& options)
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(Mvpublish::program(),
                    QStringList{text("watch"), m_source.folder(), m_out} + options);
    QVERIFY2(shows("watching "), m_written.constData());
}

bool TestMvpublishWatch::shows(const char* shown, int count)
{
    return QTest::qWaitFor([&] { return (m_written += m_process.readAll()).count(shown) >= count; },
                           longestMs);
}

bool TestMvpublishWatch::endsWell()
{
    ConsoleProgram::signal(m_process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(m_process);
    m_written += outcome.out;
    return outcome.status == 0 || !ConsoleProgram::hasSignals;
}

void TestMvpublishWatch::buildsAgainAfterAChange_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("file is written") << Change([](const SmallSource& source) {
        CatalogueFiles::write(source.file(text("look/pack/deep.bin")), "changed");
    });
    QTest::newRow("file is replaced") << Change([](const SmallSource& source) {
        const QString file = source.file(text("shared/ThemesBgm/Slow Song.mp3"));
        CatalogueFiles::write(file + text(".new"), "another song");
        QVERIFY(QFile::remove(file) && QFile::rename(file + text(".new"), file));
    });
    QTest::newRow("manifest is written") << Change(
        [](const SmallSource& source) { source.set(text("look"), "name", text("New look")); });
    QTest::newRow("folder is added") << Change([](const SmallSource& source) {
        QCOMPARE(Mvpublish::run(
                     {text("new"), text("motion"), text("Sway"), text("--in"), source.folder()})
                     .status,
                 0);
    });
    QTest::newRow("folder is removed") << Change([](const SmallSource& source) {
        QVERIFY(QDir(source.file(text("paper"))).removeRecursively());
    });
}

/// The tree is then that of a build at once.
void TestMvpublishWatch::buildsAgainAfterAChange()
{
    QFETCH(Change, change);
    start({text("--no-release")});
    change(m_source);
    const QString expected = home("expected");
    QDir(expected).removeRecursively();
    QCOMPARE(Mvpublish::build(m_source.folder(), expected, {text("--no-release")}), QString());
    const auto isSame = [&] {
        return Mvpublish::run({text("diff"), expected, m_out}).out == "no difference\n";
    };
    QTRY_VERIFY_WITH_TIMEOUT(isSame(), longestMs);
    // And again, in what came with the first change.
    m_source.set(text("zoom"), "name", text("Zoom again"));
    QCOMPARE(Mvpublish::build(m_source.folder(), expected, {text("--no-release")}), QString());
    QTRY_VERIFY_WITH_TIMEOUT(isSame(), longestMs);
    QVERIFY(endsWell());
}

void TestMvpublishWatch::faultLeavesTheTreeUntilItIsMended()
{
    start();
    const QByteArray before = CatalogueFiles::read(m_out + text("/ResourceConfig/release.json"));
    m_source.set(text("look"), "kind", text("sound"));
    QVERIFY2(shows("\"kind\" is none of"), m_written.constData());
    QCOMPARE(CatalogueFiles::read(m_out + text("/ResourceConfig/release.json")), before);
    m_source.set(text("look"), "kind", text("filter"));
    m_source.set(text("look"), "name", text("Mended"));
    QTRY_VERIFY_WITH_TIMEOUT(
        CatalogueFiles::read(m_out + text("/ResourceConfig/release.json")) != before, longestMs);
    QVERIFY(endsWell());
}

void TestMvpublishWatch::interruptEndsItCleanly()
{
    start();
    const QStringList files = CatalogueFiles::filesBelow(TestHome::path());
    QVERIFY(endsWell());
    QVERIFY(!m_written.contains("error"));
    QCOMPARE(CatalogueFiles::filesBelow(TestHome::path()), files);
    QCOMPARE(Mvpublish::run({text("lint"), m_out}).status, 0);
}

void TestMvpublishWatch::takesTheOptionsOfABuild()
{
    start({text("--edition"), text("3"), text("--no-release")});
    QVERIFY2(m_written.contains(", for 3\n"), m_written.constData());
    QVERIFY(!QFile::exists(m_out + text("/ResourceConfig/release.json")));
}

void TestMvpublishWatch::missingSourceIsAFailure()
{
    const Outcome outcome = Mvpublish::run({text("watch"), home("none"), m_out});
    QCOMPARE(outcome.err, "mvpublish: no such folder: " + home("none").toUtf8() + '\n');
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishWatch::lostSourceEndsIt()
{
    start();
    QVERIFY(QDir(m_source.folder()).removeRecursively());
    const Outcome outcome = ConsoleProgram::end(m_process);
    QVERIFY2(outcome.out.contains(" is gone\n"), outcome.out.constData());
    QCOMPARE(outcome.status, 2);
}

/// No event is delivered between the changes, so that no pause can end between them.
void TestMvpublishWatch::changesOfOneMomentCountOnce()
{
    SourceWatch watch(m_source.folder());
    QCOMPARE(watch.begin(), 0);
    QSignalSpy changed(&watch, &SourceWatch::changed);
    for (int number = 0; number < 50; ++number) {
        const QString name = QString::number(number);
        CatalogueFiles::write(m_source.file(text("look/pack/") + name), "x");
        CatalogueFiles::write(m_source.file(text("look/thumb.png")), name.toUtf8());
    }
    QVERIFY(changed.wait(longestMs));
    QCOMPARE(watch.begin(), 0);
    QTest::qWait(0);
    QCOMPARE(changed.count(), 1);
}

void TestMvpublishWatch::changeDuringTheLookIsNotLost()
{
    SourceWatch watch(m_source.folder());
    QCOMPARE(watch.begin(), 0);
    QSignalSpy changed(&watch, &SourceWatch::changed);
    CatalogueFiles::write(m_source.file(text("look/new/deep/file")), "x");
    QVERIFY(changed.wait(longestMs));
    QCOMPARE(watch.begin(), 0);
    CatalogueFiles::write(m_source.file(text("look/new/deep/file")), "changed");
    QVERIFY(changed.wait(longestMs));
}

MV_TEST_MAIN(TestMvpublishWatch)
#include "tst_mvpublish_watch.moc"
