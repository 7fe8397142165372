// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#ifndef Q_OS_WIN
#include "Terminal.h"
#endif

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

namespace tst_mvres_verify {

namespace {

constexpr int longestMs = 20000;
const QByteArray changed("PK\x03\x04 new");

} // namespace

/// Tests mvres verify: what it finds, its exit status, and repairs.
class TestMvresVerify : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shop.fresh(); }

    void currentItems();
    void statusTellsWhatIsWrong_data();
    void statusTellsWhatIsWrong();
    void namedItemsOnly();
    void deepReadingFindsSecretChanges();
    void deepReadingIsShownOnATerminal();
    void deepReadingCanBeInterrupted();
    void repairFetchesWhatIsWrong();
    void repairOfCurrentItemsNeedsNoServer();
    void repairThatFailsHasItsStatus();
    void unlistedFilesAreNotWrong();
    void printsJson();
    void withoutReleaseItSaysSo_data();
    void withoutReleaseItSaysSo();
    void unknownGuid();

private:
    enum Fault { Outdated = 1, Damaged = 2, Missing = 4 };
    void cause(int faults);
    /// Changes a file but neither its size nor its time.
    void changeSecretly(const char* name) const;

    ReleaseShop m_shop;
};

void TestMvresVerify::cause(int faults)
{
    QVERIFY(m_shop.fetch({1, 11, 13}));
    if (faults & Outdated)
        m_shop.change("VideoFilters/13.zip", changed);
    if (faults & Damaged)
        CatalogueFiles::write(m_shop.file("VideoFilters/11.xml"), "damaged");
    if (faults & Missing)
        QVERIFY(QFile::remove(m_shop.file("Themes/1.zip")));
}

void TestMvresVerify::changeSecretly(const char* name) const
{
    QFile file(m_shop.file(name));
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime time = file.fileTime(QFileDevice::FileModificationTime);
    QVERIFY(file.seek(file.size() - 1));
    file.write("!");
    file.flush();
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

void TestMvresVerify::currentItems()
{
    QVERIFY(m_shop.fetch({1}));
    const Outcome outcome = m_shop.run({text("verify")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QStringList lines = outcome.lines();
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.at(0).startsWith(CatalogueFiles::guid(11))
            && lines.at(0).endsWith(text("  current")));
    QVERIFY(lines.at(1).startsWith(CatalogueFiles::guid(1))
            && lines.at(1).endsWith(text("  current")));
    QCOMPARE(lines.at(2), text("release 100 of 2023-11-14T22:13:20Z"));
    QCOMPARE(lines.at(3), text("2 items: 2 current"));
}

void TestMvresVerify::statusTellsWhatIsWrong_data()
{
    QTest::addColumn<int>("faults");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("counts");
    QTest::newRow("nothing") << 0 << 0 << text("3 current");
    QTest::newRow("outdated") << int(Outdated) << 50 << text("2 current, 1 outdated");
    QTest::newRow("damaged") << int(Damaged) << 51 << text("1 current, 2 damaged");
    QTest::newRow("missing") << int(Missing) << 51 << text("2 current, 1 missing");
    QTest::newRow("all") << (Outdated | Damaged | Missing) << 51
                         << text("1 outdated, 1 damaged, 1 missing");
}

void TestMvresVerify::statusTellsWhatIsWrong()
{
    QFETCH(int, faults);
    QFETCH(int, status);
    QFETCH(QString, counts);
    cause(faults);
    const Outcome outcome = m_shop.run({text("verify")});
    QCOMPARE(outcome.status, status);
    const QStringList lines = outcome.lines();
    QCOMPARE(lines.constLast(), text("3 items: ") + counts);
    const auto names = [&](const char* word, const char* file) {
        return lines.contains(text("  ") + text(word) + m_shop.file(file));
    };
    QCOMPARE(names("outdated ", "VideoFilters/13.zip"), (faults & Outdated) != 0);
    QCOMPARE(names("damaged  ", "VideoFilters/11.xml"), (faults & Damaged) != 0);
    QCOMPARE(names("missing  ", "Themes/1.zip"), (faults & Missing) != 0);
}

void TestMvresVerify::namedItemsOnly()
{
    cause(Outdated | Damaged);
    const Outcome outcome = m_shop.run("verify", {13});
    QCOMPARE(outcome.status, 50);
    QCOMPARE(outcome.lines().constLast(), text("1 item: 1 outdated"));
}

void TestMvresVerify::deepReadingFindsSecretChanges()
{
    QVERIFY(m_shop.fetch({13}));
    changeSecretly("VideoFilters/13.zip");
    QCOMPARE(m_shop.run({text("verify")}).status, 0);
    const Outcome outcome = m_shop.run({text("verify"), text("--deep"), text("--repair")});
    QVERIFY(outcome.lines().contains(text("  damaged  ") + m_shop.file("VideoFilters/13.zip")));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), ReleaseShop::archive(13));
    QCOMPARE(m_shop.run({text("verify"), text("--deep")}).status, 0);
}

void TestMvresVerify::deepReadingIsShownOnATerminal()
{
#ifdef Q_OS_WIN
    QSKIP("This system has no pseudo terminal.");
#else
    QVERIFY(m_shop.fetch({13}));
    Terminal terminal(120);
    QProcess process;
    process.setStandardOutputFile(terminal.device());
    m_shop.mvres().start(process, {text("verify"), text("--deep")});
    QCOMPARE(ConsoleProgram::end(process).status, 0);
    const QStringList screen = Terminal::screen(terminal.read());
    const QString all = text("38 bytes"); // definition, archive and picture
    QCOMPARE(screen.constFirst(),
             text("reading [") + QString(39, QLatin1Char('#')) + text("] 100% ") + all
                 + text(" of ") + all);
#endif
}

void TestMvresVerify::deepReadingCanBeInterrupted()
{
    if (!ConsoleProgram::hasSignals)
        QSKIP("This system cannot interrupt a program.");
    QVERIFY(m_shop.fetch({13}));
    constexpr qint64 longSize = Q_INT64_C(20) * 1024 * 1024 * 1024; // takes minutes to read
    QVERIFY(QFile::resize(m_shop.file("VideoFilters/13.zip"), longSize));
    QProcess process;
    m_shop.mvres().start(process, {text("verify"), text("--deep")});
    QVERIFY(process.waitForReadyRead(longestMs));
    QVERIFY(process.readAllStandardOutput().startsWith("reading:   0%  "));
    ConsoleProgram::signal(process, SIGINT);
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.status, 14);
    QCOMPARE(outcome.err, QByteArray("mvres: cancelled\n"));
}

void TestMvresVerify::repairFetchesWhatIsWrong()
{
    cause(Outdated | Damaged | Missing);
    const Outcome outcome = m_shop.run({text("verify"), text("--repair")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.lines().constLast().startsWith(text("repair: complete: 3 files stored, ")),
             outcome.out.constData());
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), changed);
    QCOMPARE(m_shop.content("Themes/1.zip"), ReleaseShop::archive(1));
    QCOMPARE(m_shop.run({text("verify"), text("--deep")}).status, 0);
}

void TestMvresVerify::repairOfCurrentItemsNeedsNoServer()
{
    QVERIFY(m_shop.fetch({13}));
    const int before = m_shop.world().targets().size();
    const Outcome outcome = m_shop.run({text("verify"), text("--repair")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().constLast(), text("1 item: 1 current"));
    QCOMPARE(m_shop.world().targets().size(), before);
}

void TestMvresVerify::repairThatFailsHasItsStatus()
{
    cause(Outdated);
    m_shop.world().route(ReleaseWorld::contentTarget(changed), [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(403).body("no"));
    });
    const Outcome outcome = m_shop.run({text("verify"), text("--repair"), text("--json")});
    QCOMPARE(outcome.status, 37);
    const QJsonObject repair = QJsonDocument::fromJson(outcome.out)[text("repair")].toObject();
    QCOMPARE(repair[text("end")].toString(), text("failed"));
    QCOMPARE(repair[text("failures")][0][text("cause")].toString(), text("serverError"));
    QCOMPARE(m_shop.content("VideoFilters/13.zip"), ReleaseShop::archive(13));
}

void TestMvresVerify::unlistedFilesAreNotWrong()
{
    QVERIFY(m_shop.fetch({13}));
    m_shop.world().unlist(text("config/VideoFilters/13.zip"));
    m_shop.change("VideoFilters/12.zip", changed);
    const Outcome outcome = m_shop.run({text("verify")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().constLast(), text("1 item: 1 unlisted"));
}

void TestMvresVerify::printsJson()
{
    cause(Outdated);
    const Outcome outcome = m_shop.run({text("verify"), text("--json")});
    QCOMPARE(outcome.status, 50);
    const QJsonObject told = QJsonDocument::fromJson(outcome.out).object();
    QCOMPARE(
        told[text("release")].toObject(),
        (QJsonObject{{text("serial"), 101}, {text("published"), text("2023-11-14T22:13:20Z")}}));
    QCOMPARE(told[text("counts")].toObject(),
             (QJsonObject{{text("current"), 2},
                          {text("outdated"), 1},
                          {text("damaged"), 0},
                          {text("missing"), 0},
                          {text("unlisted"), 0}}));
    QCOMPARE(told[text("items")].toArray().size(), 3);
    QCOMPARE(told[text("items")][1][text("state")].toString(), text("outdated"));
    QCOMPARE(told[text("items")][1][text("files")].toArray().size(), 1);
    QCOMPARE(told[text("bytesToFetch")].toInt(), changed.size());
    QVERIFY(!told.contains(text("repair")));
}

void TestMvresVerify::withoutReleaseItSaysSo_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("ignored") << QStringList{text("--release"), text("ignore")};
    QTest::newRow("of another server")
        << QStringList{text("--server"), text("http://127.0.0.1:9/")};
}

void TestMvresVerify::withoutReleaseItSaysSo()
{
    QFETCH(QStringList, options);
    QVERIFY(m_shop.fetch({13}));
    const Outcome outcome = m_shop.run(QStringList{text("verify")} + options);
    QCOMPARE(outcome.err,
             QByteArray("mvres: no release to compare with: mvres check fetches that of the "
                        "server, if it has one\n"));
    QCOMPARE(outcome.status, 1);
}

void TestMvresVerify::unknownGuid()
{
    const Outcome outcome = m_shop.run("verify", {99});
    QCOMPARE(outcome.err, "mvres: unknown GUID " + CatalogueFiles::guid(99).toUtf8() + '\n');
    QCOMPARE(outcome.status, 1);
}

MV_TEST_MAIN(TestMvresVerify)

} // namespace tst_mvres_verify

#include "tst_mvres_verify.moc"
