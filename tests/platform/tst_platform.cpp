// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/TreeServer.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "tools/ConsoleProgram.h"
#include "tools/ReleasedTree.h"
#include "tools/SmallSource.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/// Tests that the libraries work alike on our platform and on that of examples/platform, with a
/// real server and in a program of their own: one process has one platform.
class tst_platform : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void fetchesATheme_data() { platforms(); }
    void fetchesATheme();
    void fetchesAReleaseByDigest_data() { platforms(); }
    void fetchesAReleaseByDigest();
    void refusesContentThatWasNotPublished_data() { platforms(); }
    void refusesContentThatWasNotPublished();
    void reportsAMissingFile_data() { platforms(); }
    void reportsAMissingFile();
    void reportsAServerThatIsNotThere_data() { platforms(); }
    void reportsAServerThatIsNotThere();

private:
    static void platforms();
    /// Serves a folder and notes the names requested.
    bool serve(const QString& folder);
    Outcome fetch(const QString& guid, const QString& server = QString());
    /// Returns the names of the files in the download tree, by those on the server.
    QStringList downloaded() const;
    QByteArray content(const QString& name) const;
    int requests(const QString& prefix) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    TreeServer m_server;
    mutable QMutex m_mutex; // guards m_requests
    QStringList m_requests;
};

namespace {

const QString samples = QStringLiteral(MV_SAMPLES);
const QString whiteChristmas = QStringLiteral("{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}");

} // namespace

void tst_platform::platforms()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("ours") << QStringLiteral(FETCH_ON_OURS);
    QTest::newRow("the example's") << QStringLiteral(FETCH_ON_EXAMPLE);
}

void tst_platform::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_requests.clear();
}

void tst_platform::cleanup()
{
    m_server.stop();
}

bool tst_platform::serve(const QString& folder)
{
    m_server.setAccessLog([this](const QString& line) {
        const QMutexLocker lock(&m_mutex);
        m_requests += line.section(QLatin1Char(' '), 1);
    });
    return m_server.start(folder);
}

Outcome tst_platform::fetch(const QString& guid, const QString& server)
{
    const QString* const program =
        static_cast<QString*>(QTest::qData("program", QMetaType::QString));
    QProcess process;
    QProcessEnvironment environment = ConsoleProgram::utf8Environment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_folder->filePath(QStringLiteral("data")));
    process.setProcessEnvironment(environment);
    process.start(*program,
                  {server.isEmpty() ? m_server.url() : server,
                   samples + QStringLiteral("/installed"),
                   m_folder->filePath(QStringLiteral("root")), guid});
    return ConsoleProgram::end(process);
}

QStringList tst_platform::downloaded() const
{
    QStringList names;
    const QStringList files =
        CatalogueFiles::filesBelow(m_folder->filePath(QStringLiteral("root/Themes")));
    for (const QString& file : files) {
        if (file.contains(QStringLiteral("/PQD/Download/")))
            names += QString(file).replace(QStringLiteral("/PQD/Download/"), QStringLiteral("/"));
    }
    return names;
}

QByteArray tst_platform::content(const QString& name) const
{
    const int slash = name.indexOf(QLatin1Char('/'));
    return CatalogueFiles::read(m_folder->filePath(QStringLiteral("root/Themes/"))
                                + name.left(slash) + QStringLiteral("/PQD/Download")
                                + name.mid(slash));
}

int tst_platform::requests(const QString& prefix) const
{
    const QMutexLocker lock(&m_mutex);
    int count = 0;
    for (const QString& request : m_requests)
        count += request.startsWith(prefix) ? 1 : 0;
    return count;
}

void tst_platform::fetchesATheme()
{
    QVERIFY(serve(samples + QStringLiteral("/server")));
    const Outcome outcome = fetch(whiteChristmas);
    QCOMPARE(outcome.lines(),
             (QStringList{QStringLiteral("check: 0 , previews: 33 fetched, 0 failed"),
                          QStringLiteral("theme: 0 ")}));
    QCOMPARE(outcome.status, 0);
    const QStringList names = downloaded();
    QVERIFY(names.contains(QStringLiteral("config/Themes/") + whiteChristmas
                           + QStringLiteral("/theme.zip")));
    QVERIFY(names.size() > 33 + 10);
    for (const QString& name : names)
        QCOMPARE(content(name), CatalogueFiles::read(samples + QStringLiteral("/server/") + name));
}

void tst_platform::fetchesAReleaseByDigest()
{
    const ReleasedTree tree(m_folder->filePath(QStringLiteral("tree")));
    QCOMPARE(tree.build(), QString());
    QVERIFY(serve(tree.folder()));
    const Outcome outcome = fetch(SmallSource::guid(QStringLiteral("film")));
    QCOMPARE(outcome.lines().mid(1), QStringList{QStringLiteral("theme: 0 ")});
    QVERIFY(requests(QStringLiteral("/content/")) > 5);
    QCOMPARE(requests(QStringLiteral("/config/")), 0);
    const QMap<QString, QByteArray> published = tree.files();
    const QStringList names = downloaded();
    QVERIFY(!names.isEmpty());
    for (const QString& name : names)
        QCOMPARE(content(name), published.value(name));
}

void tst_platform::refusesContentThatWasNotPublished()
{
    const ReleasedTree tree(m_folder->filePath(QStringLiteral("tree")));
    QCOMPARE(tree.build(), QString());
    const QMap<QString, QByteArray> published = tree.files();
    QString archive;
    for (auto file = published.cbegin(); file != published.cend(); ++file) {
        if (file.key().startsWith(QStringLiteral("config/Themes/"))
            && file.key().endsWith(QStringLiteral(".zip")))
            archive = file.key();
    }
    QVERIFY(!archive.isEmpty());
    const QByteArray digest = tree.list().find(archive).digest;
    const QString stored =
        tree.file(QStringLiteral("content/") + QString::fromLatin1(digest.left(2))
                  + QLatin1Char('/') + QString::fromLatin1(digest));
    QVERIFY(QFile::remove(stored)); // a hard link of the name's
    CatalogueFiles::write(stored, QByteArray(published.value(archive)).replace(10, 1, "?"));

    QVERIFY(serve(tree.folder()));
    const Outcome outcome = fetch(SmallSource::guid(QStringLiteral("film")));
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.lines().constLast().contains(
                 QStringLiteral("the content is not the published one")),
             outcome.out.constData());
    QVERIFY(!downloaded().contains(archive));
}

void tst_platform::reportsAMissingFile()
{
    const ReleasedTree tree(m_folder->filePath(QStringLiteral("tree")));
    QCOMPARE(tree.build(), QString());
    QVERIFY(QDir(tree.file(QStringLiteral("content"))).removeRecursively());
    for (const char* name : {"ResourceConfig/release.json", "ResourceConfig/files.txt",
                             "config/ThemesBgm/Slow Song.mp3"})
        QVERIFY2(QFile::remove(tree.file(QString::fromLatin1(name))), name);
    QVERIFY(serve(tree.folder()));
    const Outcome outcome = fetch(SmallSource::guid(QStringLiteral("film")));
    QCOMPARE(outcome.status, 1);
    QVERIFY2(
        outcome.lines().constLast().contains(QStringLiteral("Slow Song.mp3: HTTP status 404 ")),
        outcome.out.constData());
    QVERIFY(!downloaded().contains(QStringLiteral("config/ThemesBgm/Slow Song.mp3")));
    QVERIFY(downloaded().size() > 5); // the others
}

void tst_platform::reportsAServerThatIsNotThere()
{
    QVERIFY(serve(samples + QStringLiteral("/server")));
    const QString gone = m_server.url();
    m_server.stop();
    const Outcome outcome = fetch(QStringLiteral("{1611435C-464C-5F2E-B9D6-2247770B2131}"), gone);
    QVERIFY2(outcome.lines().constFirst().startsWith(QStringLiteral("check: 2 ")),
             outcome.out.constData());
}

MV_TEST_MAIN(tst_platform)

#include "tst_platform.moc"
