// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMove.h"
#include "MoveJournal.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>

#include <memory>

/// Tests that a move which was killed can be resumed, even if originals have changed since.
class tst_DownloadsMove_killed : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void equalFilesAreKept();
    void changedOriginalsReplaceTheirCopies();
    void moveFromAnotherFolderIsNotResumed();
    void ledgerThatHasGrownIsNoObstacle();
    void changedCopyIsNotReplaced();
    void cancelledMoveCanStillBeResumed();
    void copyOfAnUnreadableOriginalIsKept();
    void journalThatIsAPipeIsReplaced();
    void journalAloneIsNoDownload();

private:
    using Files = QMap<QString, QByteArray>;

    QString from() const { return m_folder->path() + QStringLiteral("/old"); }
    QString to() const { return m_folder->path() + QStringLiteral("/new"); }
    QString journal() const { return to() + QStringLiteral("/Themes/") + MoveJournal::fileName(); }
    Files filesOf(const QString& root) const;
    void change(const QByteArray& content);
    void kill(const QString& last) const;
    void kill() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    Files m_files;
};

namespace {

using End = DownloadsMove::End;

const DownloadsMove::Progress noProgress = [](qint64, qint64) {};
const QString catalogue = QStringLiteral("Themes/ResourceConfig/Themes.xml");
const QString ledger = QStringLiteral("Themes/ResourceConfig/ledger.txt");

struct Killed
{
};

/// Replaces a file, of which other links keep the old content.
void replace(const QString& path, const QByteArray& content)
{
    QFile::remove(path);
    CatalogueFiles::write(path, content);
}

} // namespace

void tst_DownloadsMove_killed::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_files = {{QStringLiteral("Themes/config/Themes/a.xml"), "a"},
               {QStringLiteral("Themes/config/Themes/100% ä.zip"), "PK"},
               {ledger, "first\n"},
               {catalogue, "<first/>"}};
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
        CatalogueFiles::write(from() + QLatin1Char('/') + it.key(), it.value());
}

tst_DownloadsMove_killed::Files tst_DownloadsMove_killed::filesOf(const QString& root) const
{
    Files files;
    QDirIterator each(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        if (path != journal())
            files.insert(path.mid(root.size() + 1), CatalogueFiles::read(path));
    }
    return files;
}

void tst_DownloadsMove_killed::change(const QByteArray& content)
{
    m_files[catalogue] = content;
    replace(from() + QLatin1Char('/') + catalogue, content);
}

void tst_DownloadsMove_killed::kill() const
{
    kill(catalogue);
}

/// Ends a move as soon as that file has been brought, and leaves everything as it is then.
void tst_DownloadsMove_killed::kill(const QString& last) const
{
    try {
        DownloadsMove(from(), to()).bring(CancelToken(), [&](qint64, qint64) {
            if (filesOf(to()).value(last) == m_files.value(last))
                throw Killed();
        });
        QFAIL("the move was not killed");
    } catch (const Killed&) {
        QVERIFY(QFile::exists(journal()));
    }
}

void tst_DownloadsMove_killed::equalFilesAreKept()
{
    const QString known = m_files.firstKey();
    CatalogueFiles::write(to() + QLatin1Char('/') + known, m_files.first());
    DownloadsMove move(from(), to());
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Complete);
    QCOMPARE(filesOf(to()), m_files);
    move.takeBack();
    QCOMPARE(filesOf(to()), (Files{{known, m_files.first()}}));
    QVERIFY(!QFile::exists(journal()));
}

/// It is killed again and again, while catalogue and items change.
void tst_DownloadsMove_killed::changedOriginalsReplaceTheirCopies()
{
    kill();
    for (const char* content : {"<newer/>", "<the newest/>"}) {
        change(content);
        kill();
    }
    change("<last/>");
    m_files[QStringLiteral("Themes/config/Themes/new.zip")] = "new";
    CatalogueFiles::write(from() + QLatin1Char('/') + m_files.lastKey(), m_files.last());
    DownloadsMove move(from(), to());
    QVERIFY2(move.bring(CancelToken(), noProgress) == End::Complete, qPrintable(move.errorText()));
    QCOMPARE(CatalogueFiles::read(from() + QLatin1Char('/') + catalogue), QByteArray("<last/>"));
    QCOMPARE(move.removeOriginals(), 0);
    QCOMPARE(filesOf(to()), m_files);
    QVERIFY(!QFile::exists(from() + QStringLiteral("/Themes")));
    QVERIFY(!QFile::exists(journal()));
}

void tst_DownloadsMove_killed::moveFromAnotherFolderIsNotResumed()
{
    kill();
    const Files brought = filesOf(to());
    const QString other = m_folder->path() + QStringLiteral("/other");
    CatalogueFiles::write(other + QLatin1Char('/') + catalogue, "other");
    DownloadsMove move(other, to());
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QVERIFY2(move.errorText().contains(catalogue), qPrintable(move.errorText()));
    QCOMPARE(filesOf(to()), brought);
    QCOMPARE(filesOf(other), (Files{{catalogue, "other"}}));
}

/// Downloads append to it, and cleaning replaces it.
void tst_DownloadsMove_killed::ledgerThatHasGrownIsNoObstacle()
{
    kill(ledger);
    QFile grown(from() + QLatin1Char('/') + ledger);
    QVERIFY(grown.open(QIODevice::Append));
    grown.write("second\n");
    grown.close();
    QCOMPARE(filesOf(to()).value(ledger), QByteArray("first\n"));
    m_files[ledger] = "second\n";
    replace(grown.fileName(), m_files.value(ledger));
    DownloadsMove move(from(), to());
    QVERIFY2(move.bring(CancelToken(), noProgress) == End::Complete, qPrintable(move.errorText()));
    QCOMPARE(move.removeOriginals(), 0);
    QCOMPARE(filesOf(to()), m_files);
}

/// Another program may have used the new folder since.
void tst_DownloadsMove_killed::changedCopyIsNotReplaced()
{
    kill();
    const QString copy = to() + QLatin1Char('/') + catalogue;
    replace(copy, "theirs");
    DownloadsMove move(from(), to());
    QCOMPARE(move.bring(CancelToken(), noProgress), End::Failed);
    QVERIFY2(move.errorText().contains(copy), qPrintable(move.errorText()));
    QCOMPARE(CatalogueFiles::read(copy), QByteArray("theirs"));
    QCOMPARE(filesOf(from()), m_files);
}

void tst_DownloadsMove_killed::cancelledMoveCanStillBeResumed()
{
    kill();
    CancelToken cancel;
    QCOMPARE(DownloadsMove(from(), to()).bring(cancel, [&](qint64, qint64) { cancel.cancel(); }),
             End::Cancelled);
    change("<newer/>");
    DownloadsMove move(from(), to());
    QVERIFY2(move.bring(CancelToken(), noProgress) == End::Complete, qPrintable(move.errorText()));
    QCOMPARE(filesOf(to()), m_files);
}

/// It may be all that is left.
void tst_DownloadsMove_killed::copyOfAnUnreadableOriginalIsKept()
{
    QCOMPARE(DownloadsMove(from(), to()).bring(CancelToken(), noProgress), End::Complete);
    const auto removeOriginals = [this](qint64, qint64) { QDir(from()).removeRecursively(); };
    DownloadsMove move(from(), to());
    QCOMPARE(move.bring(CancelToken(), removeOriginals), End::Failed);
    QVERIFY2(move.errorText().contains(QStringLiteral("cannot be read")),
             qPrintable(move.errorText()));
    QCOMPARE(filesOf(to()), m_files);
}

void tst_DownloadsMove_killed::journalThatIsAPipeIsReplaced()
{
    if (!UnusualFiles::hasPipes)
        QSKIP("the system has no pipes with names");
    QVERIFY(QDir().mkpath(QFileInfo(journal()).path()));
    UnusualFiles::makePipe(journal());
    DownloadsMove move(from(), to());
    QVERIFY2(move.bring(CancelToken(), noProgress) == End::Complete, qPrintable(move.errorText()));
    QVERIFY(QFileInfo(journal()).isFile());
    QCOMPARE(filesOf(to()), m_files);
}

void tst_DownloadsMove_killed::journalAloneIsNoDownload()
{
    CatalogueFiles::write(journal(), "");
    QVERIFY(!DownloadsMove::holdsAny(to()));
    QVERIFY(DownloadsMove::holdsAny(from()));
}

MV_TEST_MAIN(tst_DownloadsMove_killed)
#include "tst_DownloadsMove_killed.moc"
