// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMove.h"
#include "faults/FaultyRun.h"
#include "MoveJournal.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using Files = CatalogueFiles;

/// Tests moving downloads back to a folder in which a move that was killed has left originals. The
/// program runs itself with the library that counts file operations.
class tst_DownloadsMove_back : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void originalsThatAreLeftAreReplaced();
    void originalsThatHaveChangedSinceAreNot();

private:
    QString world() const { return TestHome::path() + QStringLiteral("/world"); }
    QString from() const { return world() + QStringLiteral("/old"); }
    QString to() const { return world() + QStringLiteral("/new"); }
    QStringList arguments() const { return {QStringLiteral("--move"), from(), to()}; }
    FaultyOutcome killed();

    FaultyRun m_runner{world(), TestHome::path() + QStringLiteral("/report")};
};

namespace {

using End = DownloadsMove::End;

const DownloadsMove::Progress noProgress = [](qint64, qint64) {};
const QString catalogue = QStringLiteral("/Themes/ResourceConfig/Themes.xml");
const QString item = QStringLiteral("/Themes/config/Themes/a.xml");

/// Action of a process of its own.
int move(const QString& from, const QString& to)
{
    DownloadsMove move(from, to);
    return move.bring(CancelToken(), noProgress) == End::Complete ? move.removeOriginals() : 1;
}

/// Replaces a file, of which other links keep the old content.
void replace(const QString& path, const QByteArray& content)
{
    QFile::remove(path);
    Files::write(path, content);
}

} // namespace

void tst_DownloadsMove_back::init()
{
    QDir(world()).removeRecursively();
    Files::write(from() + catalogue, "<first/>");
    Files::write(from() + item, "a");
}

/// Runs a move that ends where it would remove the first original.
FaultyOutcome tst_DownloadsMove_back::killed()
{
    const QString program = QCoreApplication::applicationFilePath();
    const QVector<CountedOperation> all = m_runner.trace(program, arguments()).operations;
    const auto removal = std::find_if(all.cbegin(), all.cend(), [&](const CountedOperation& one) {
        return one.operation == Operation::Remove
            && (one.path == from() + catalogue || one.path == from() + item);
    });
    init();
    return m_runner.run(program, arguments(),
                        {FaultKind::Kill, removal == all.cend() ? 0 : removal->number, false});
}

void tst_DownloadsMove_back::originalsThatAreLeftAreReplaced()
{
    QVERIFY(killed().signal != 0);
    replace(to() + catalogue, "<newer/>"); // the new folder is in use
    QCOMPARE(Files::read(from() + catalogue), QByteArray("<first/>"));
    DownloadsMove back(to(), from());
    QVERIFY2(back.bring(CancelToken(), noProgress) == End::Complete, qPrintable(back.errorText()));
    QCOMPARE(back.removeOriginals(), 0);
    QCOMPARE(Files::read(from() + catalogue), QByteArray("<newer/>"));
    QCOMPARE(Files::filesBelow(to()), QStringList());
    QVERIFY(!QFile::exists(from() + QStringLiteral("/Themes/") + MoveJournal::fileName()));
}

/// Another program may use the old folder.
void tst_DownloadsMove_back::originalsThatHaveChangedSinceAreNot()
{
    QVERIFY(killed().signal != 0);
    replace(to() + catalogue, "<newer/>");
    replace(from() + catalogue, "theirs");
    DownloadsMove back(to(), from());
    QCOMPARE(back.bring(CancelToken(), noProgress), End::Failed);
    QVERIFY2(back.errorText().contains(catalogue), qPrintable(back.errorText()));
    QCOMPARE(Files::read(from() + catalogue), QByteArray("theirs"));
}

int main(int argc, char** argv)
{
    if (argc == 4 && QByteArray(argv[1]) == "--move") {
        const QCoreApplication application(argc, argv);
        return move(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    }
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    tst_DownloadsMove_back test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_DownloadsMove_back.moc"
