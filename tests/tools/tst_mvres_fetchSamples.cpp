// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "server/TreeServer.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QMutex>
#include <QRegularExpression>

namespace tst_mvres_fetchSamples {

namespace {

const QString theme = QStringLiteral("{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}");

/// Records requests; called on the server's threads.
class AccessList
{
public:
    void add(const QString& line)
    {
        const QMutexLocker lock(&m_mutex);
        m_lines.append(line);
    }
    QStringList lines() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_lines;
    }

private:
    mutable QMutex m_mutex; // guards m_lines
    QStringList m_lines;
};

} // namespace

/// Tests mvres with the samples: a theme is fetched with its dependencies.
class TestMvresFetchSamples : public QObject
{
    Q_OBJECT

private slots:
    void aThemeComesCompletely();
};

void TestMvresFetchSamples::aThemeComesCompletely()
{
    AccessList access;
    TreeServer server;
    server.setAccessLog([&access](const QString& line) { access.add(line); });
    QVERIFY2(server.start(Mvres::samples() + QStringLiteral("/server")),
             qPrintable(server.errorText()));
    Mvres mvres;
    mvres.useSamples();
    mvres.setServer(server.url());
    const QStringList fetch{QStringLiteral("fetch"), theme};
    const QStringList list{QStringLiteral("list"), QStringLiteral("theme")};

    QVERIFY(
        mvres.run(list).lines().filter(theme).constFirst().endsWith(QStringLiteral("  3 missing")));
    const Outcome outcome = mvres.run(fetch);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY(mvres.run(list).lines().filter(theme).constFirst().endsWith(QStringLiteral("  ready")));

    // Its config file, two more files, and two for each of the six items that are not installed.
    const QDir tree(mvres.downloadedFile(QString()));
    const QStringList files = CatalogueFiles::filesBelow(tree.path());
    QCOMPARE(files.size(), 15);
    for (const QString& file : files) {
        const QByteArray published =
            CatalogueFiles::read(Mvres::samples() + QStringLiteral("/server/config/") + file);
        QVERIFY2(!published.isEmpty(), qPrintable(file));
        QCOMPARE(CatalogueFiles::read(tree.filePath(file)), published);
        QVERIFY2(outcome.out.contains("  " + tree.filePath(file).toUtf8() + '\n'),
                 qPrintable(file));
    }
    QCOMPARE(mvres.downloaded().size(), files.size());

    // Each was asked for once, and none a second time.
    QTRY_COMPARE(access.lines().size(), files.size()); // the last line is written after its answer
    const QStringList requests = access.lines();
    QCOMPARE(requests.filter(QRegularExpression(QStringLiteral("^GET /config/.* 200$"))).size(),
             files.size());
    const Outcome again = mvres.run(fetch);
    QCOMPARE(again.status, 0);
    QCOMPARE(again.lines().constLast(), outcome.lines().constLast());
    QCOMPARE(access.lines().size(), requests.size());
}

MV_TEST_MAIN(TestMvresFetchSamples)

} // namespace tst_mvres_fetchSamples

#include "tst_mvres_fetchSamples.moc"
