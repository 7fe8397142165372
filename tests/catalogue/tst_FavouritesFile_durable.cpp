// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/FavouritesFile.h"
#include "faults/FaultyRun.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>

#include <cstdio>

using Files = CatalogueFiles;

/// Tests what survives a power cut, and what is told of a failing disk, when favourites are
/// exported. The program runs itself with the library that counts file operations.
class tst_FavouritesFile_durable : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void flushesDataBeforeTheNameAndThenTheName();
    void failingDiskLeavesTheOldFile_data();
    void failingDiskLeavesTheOldFile();
    void remainsOfAKilledExportAreRemoved();

private:
    QString world() const { return TestHome::path() + QStringLiteral("/world"); }
    QString folder() const { return world() + QStringLiteral("/folder"); }
    QString target() const { return folder() + QStringLiteral("/favourites.json"); }
    QStringList arguments() const { return {QStringLiteral("--export"), target()}; }
    FaultyOutcome traced() const
    {
        return m_runner.trace(QCoreApplication::applicationFilePath(), arguments());
    }
    FaultyOutcome failingAt(const QString& operation, FaultKind kind);

    FaultyRun m_runner{world(), TestHome::path() + QStringLiteral("/report")};
};

namespace {

const QByteArray oldContent = "old";
const QByteArray newContent = "{\n    \"favourites\": [\n    ],\n    \"format\": 1\n}\n";

/// Action of a process of its own, which says what failed.
int exportFavourites(const QString& path)
{
    FavouritesFile favourites;
    if (favourites.write(path))
        return 0;
    std::printf("%s\n", qPrintable(favourites.errorText()));
    return 1;
}

} // namespace

void tst_FavouritesFile_durable::init()
{
    QDir(world()).removeRecursively();
    Files::write(target(), oldContent);
}

/// Runs an export in which an operation of that text fails.
FaultyOutcome tst_FavouritesFile_durable::failingAt(const QString& operation, FaultKind kind)
{
    const Fault fault{kind, traced().numberOf(operation), false};
    init();
    return m_runner.run(QCoreApplication::applicationFilePath(), arguments(), fault);
}

void tst_FavouritesFile_durable::flushesDataBeforeTheNameAndThenTheName()
{
    const QStringList operations = traced().operationTexts();
    QCOMPARE(operations.mid(operations.indexOf(QStringLiteral("create PART"))),
             (QStringList{QStringLiteral("create PART"), QStringLiteral("write PART"),
                          QStringLiteral("flush PART"), QStringLiteral("rename favourites.json"),
                          QStringLiteral("openfolder folder"), QStringLiteral("flush folder")}));
    QCOMPARE(Files::read(target()), newContent);
}

void tst_FavouritesFile_durable::failingDiskLeavesTheOldFile_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<FaultKind>("kind");
    QTest::addColumn<QString>("reason");
    for (const char* operation :
         {"create PART", "write PART", "flush PART", "rename favourites.json"}) {
        QTest::addRow("%s, full", operation)
            << QString::fromLatin1(operation) << FaultKind::DiskFull
            << QStringLiteral("No space left on device");
        QTest::addRow("%s, broken", operation)
            << QString::fromLatin1(operation) << FaultKind::Broken
            << QStringLiteral("Input/output error");
    }
}

void tst_FavouritesFile_durable::failingDiskLeavesTheOldFile()
{
    QFETCH(QString, operation);
    QFETCH(FaultKind, kind);
    QFETCH(QString, reason);
    const FaultyOutcome outcome = failingAt(operation, kind);
    QCOMPARE(outcome.hit.text(), operation);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(QString::fromUtf8(outcome.out),
             QStringLiteral("%1 cannot be written: %2\n").arg(target(), reason));
    QCOMPARE(Files::read(target()), oldContent);
    QCOMPARE(Files::filesBelow(folder()), QStringList{QStringLiteral("favourites.json")});
}

void tst_FavouritesFile_durable::remainsOfAKilledExportAreRemoved()
{
    const FaultyOutcome killed =
        failingAt(QStringLiteral("rename favourites.json"), FaultKind::Kill);
    QVERIFY(killed.signal != 0);
    QCOMPARE(Files::read(target()), oldContent);
    QCOMPARE(Files::filesBelow(folder()).size(), 2);
    QCOMPARE(traced().status, 0);
    QCOMPARE(Files::read(target()), newContent);
    QCOMPARE(Files::filesBelow(folder()), QStringList{QStringLiteral("favourites.json")});
}

int main(int argc, char** argv)
{
    if (argc == 3 && QByteArray(argv[1]) == "--export") {
        const QCoreApplication application(argc, argv);
        return exportFavourites(QString::fromLocal8Bit(argv[2]));
    }
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    tst_FavouritesFile_durable test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_FavouritesFile_durable.moc"
