// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "FolderSwitch.h"
#include "host/ContentDigest.h"
#include "Mvpublish.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "TinyRelease.h"
#include "WatchedRclone.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>

/// Tests what mvpublish upload refuses, how it fails, and how caches are told to keep files.
class TestMvpublishUploadRefusals : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void refusesATreeThatIsNotWhole_data();
    void refusesATreeThatIsNotWhole();
    void refusesAnExpiredRelease();
    void refusesAReleaseThatClientsWouldRefuse_data();
    void refusesAReleaseThatClientsWouldRefuse();
    void refusesATreeThatIsBeingWritten();
    void endsIfAnotherUploadOvertakes();
    void endsIfAContentVanishes();
    void needsRclone();
    void failureIsThatOfRclone();
    void everyKindSaysHowLongItIsKept();

private:
    Outcome upload(const QStringList& more = {}) const
    {
        return Mvpublish::run(QStringList{text("upload"), m_tree.folder(), home("space")} + more);
    }
    static QByteArray contentOf(const char* bytes)
    {
        return ReleasePaths::content(ContentDigest::ofBytes(bytes)).toUtf8();
    }

    TinyRelease m_tree{home("tree")};
    TinyRelease m_space{home("space")};
};

void TestMvpublishUploadRefusals::init()
{
    m_tree.write(6);
    m_space.write(5);
    m_space.record(QDateTime::currentDateTimeUtc());
}

void TestMvpublishUploadRefusals::refusesATreeThatIsNotWhole_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    const QByteArray missing = "-";
    const QString content = QString::fromUtf8(contentOf("always"));
    QTest::newRow("no release") << ReleasePaths::release() << missing
                                << home("tree")
            + text(" has no ResourceConfig/release.json; build it with a release");
    QTest::newRow("no JSON") << ReleasePaths::release() << QByteArray("{")
                             << text("ResourceConfig/release.json: the release is not a JSON "
                                     "object: unterminated object");
    QTest::newRow("other list")
        << ReleasePaths::list() << QByteArray("x")
        << text("ResourceConfig/files.txt is not the list that the release names; build the tree "
                "anew");
    QTest::newRow("changed file")
        << text("config/Motions/{1}/zoom in.zip") << QByteArray("x")
        << text(
               "config/Motions/{1}/zoom in.zip is not what the release names; build the tree anew");
    QTest::newRow("missing content") << content << missing
                                     << content
            + text(", the content of display/Themes/same \xc3\xa4.png, is missing or damaged; "
                   "build the tree anew");
    QTest::newRow("damaged content") << content << QByteArray("AlwayS")
                                     << content
            + text(", the content of display/Themes/same \xc3\xa4.png, is missing or damaged; "
                   "build the tree anew");
}

void TestMvpublishUploadRefusals::refusesATreeThatIsNotWhole()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    QVERIFY(QFile::remove(m_tree.file(name)));
    if (content != "-")
        CatalogueFiles::write(m_tree.file(name), content);
    const QStringList before = CatalogueFiles::filesBelow(m_space.folder());
    const Outcome outcome = upload();
    QCOMPARE(QString::fromUtf8(outcome.err), text("mvpublish: ") + message + QLatin1Char('\n'));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(CatalogueFiles::filesBelow(m_space.folder()), before);
}

void TestMvpublishUploadRefusals::refusesAnExpiredRelease()
{
    QByteArray release = CatalogueFiles::read(m_tree.file(ReleasePaths::release()));
    release.replace("\"format\"", "\"expires\": \"2026-01-01T00:00:00Z\", \"format\"");
    CatalogueFiles::write(m_tree.file(ReleasePaths::release()), release);
    QCOMPARE(upload().err,
             QByteArray("mvpublish: the release expired on 2026-01-01T00:00:00Z; build the tree "
                        "anew\n"));
}

void TestMvpublishUploadRefusals::refusesAReleaseThatClientsWouldRefuse_data()
{
    QTest::addColumn<qint64>("serial");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("lower serial")
        << Q_INT64_C(4)
        << QByteArray("the remote has release 5, which is newer than release 4 of the tree; build "
                      "the tree anew");
    QTest::newRow("same serial, other release")
        << Q_INT64_C(5) << QByteArray("the remote has another release 5; build the tree anew");
}

void TestMvpublishUploadRefusals::refusesAReleaseThatClientsWouldRefuse()
{
    QFETCH(qint64, serial);
    QFETCH(QByteArray, message);
    m_tree.write(serial, TinyRelease::files(7));
    const Outcome outcome = upload();
    QCOMPARE(outcome.err, "mvpublish: " + message + "; nothing has been sent\n");
    QCOMPARE(outcome.status, 2);
}

/// A build would exchange the files under the upload's feet.
void TestMvpublishUploadRefusals::refusesATreeThatIsBeingWritten()
{
    FolderSwitch place(m_tree.folder());
    QVERIFY(place.lock());
    QCOMPARE(QString::fromUtf8(upload().err),
             text("mvpublish: %1 is being written by another run\n").arg(m_tree.folder()));
}

void TestMvpublishUploadRefusals::endsIfAnotherUploadOvertakes()
{
    const WatchedRclone rclone(home("watched"));
    rclone.stopAt(ReleasePaths::list());
    QProcess process;
    process.setProcessEnvironment(rclone.environment());
    process.start(Mvpublish::program(), {text("upload"), m_tree.folder(), m_space.folder()});
    QTRY_VERIFY_WITH_TIMEOUT(rclone.hasStopped(), 20000);
    const TinyRelease newer(home("newer"));
    newer.write(7);
    QCOMPARE(Mvpublish::run({text("upload"), newer.folder(), m_space.folder()}).status, 0);
    rclone.goOn();
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: another upload is bringing release 7 there; this one ends\n"));
    QCOMPARE(outcome.status, 2);
    QVERIFY(CatalogueFiles::read(m_space.file(ReleasePaths::release())).contains(": 7"));
}

void TestMvpublishUploadRefusals::endsIfAContentVanishes()
{
    const WatchedRclone rclone(home("watched"));
    rclone.stopAt(ReleasePaths::list());
    QProcess process;
    process.setProcessEnvironment(rclone.environment());
    process.start(Mvpublish::program(), {text("upload"), m_tree.folder(), m_space.folder()});
    QTRY_VERIFY_WITH_TIMEOUT(rclone.hasStopped(), 20000);
    QVERIFY(QFile::remove(m_space.file(QString::fromUtf8(contentOf("always")))));
    rclone.goOn();
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err,
             "mvpublish: the remote does not have " + contentOf("always")
                 + "; upload the tree again; release 5 of 2026-11-22T11:00:00Z is still in "
                   "force\n");
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishUploadRefusals::needsRclone()
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("PATH"), home("nowhere"));
    process.setProcessEnvironment(environment);
    process.start(Mvpublish::program(), {text("upload"), m_tree.folder(), m_space.folder()});
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: the program rclone is not installed; upload needs it\n"));
    QCOMPARE(outcome.status, 2);
}

/// A folder is where the version file has to be.
void TestMvpublishUploadRefusals::failureIsThatOfRclone()
{
    const QString version = text("ResourceConfig/resource_version_v3.xml");
    QVERIFY(QFile::remove(m_space.file(version)));
    CatalogueFiles::write(m_space.file(version + text("/file")), "x");
    const Outcome outcome = upload({text("--"), text("--retries=1")});
    QVERIFY2(outcome.err.startsWith("mvpublish: rclone: ") && outcome.err.contains("is a directory")
                 && outcome.err.endsWith("; release 5 of 2026-11-22T11:00:00Z is still in force\n"),
             outcome.err.constData());
    QCOMPARE(outcome.status, 2);
    QVERIFY(CatalogueFiles::read(m_space.file(ReleasePaths::release())).contains(": 5"));
}

void TestMvpublishUploadRefusals::everyKindSaysHowLongItIsKept()
{
    const WatchedRclone rclone(home("watched"));
    QProcess process;
    process.setProcessEnvironment(rclone.environment());
    process.start(Mvpublish::program(), {text("upload"), m_tree.folder(), m_space.folder()});
    QCOMPARE(ConsoleProgram::end(process).status, 0);
    QStringList kept;
    const QStringList commands = rclone.commands();
    for (const QString& command : commands) {
        const QString field = text("--header-upload=Cache-Control: ");
        if (command.contains(field))
            kept.append(command.section(field, 1).section(text(" --"), 0, 0));
    }
    const QString revalidated = text("no-cache");
    QCOMPARE(kept,
             (QStringList{revalidated, text("public, max-age=31536000, immutable"), revalidated,
                          revalidated, text("no-store"), revalidated, revalidated, revalidated}));
}

MV_TEST_MAIN(TestMvpublishUploadRefusals)
#include "tst_mvpublish_uploadRefusals.moc"
