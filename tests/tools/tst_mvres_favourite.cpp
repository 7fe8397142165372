// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "console/PreparedProcess.h"
#include "Mvres.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QJsonDocument>
#include <QJsonObject>

#ifndef Q_OS_WIN
#include <csignal>

#include <sys/resource.h>
#endif

namespace tst_mvres_favourite {

namespace {

const QString theme = QStringLiteral("{1611435C-464C-5F2E-B9D6-2247770B2131}");
const QString filter = QStringLiteral("{05424433-FB6F-41CD-96E4-ECD6D1C2C841}");
const QString background = QStringLiteral("{20A63E69-32DC-415E-AA04-6A3D705F8290}");
const QString transition = QStringLiteral("{4AB14EF6-559F-4EE5-A809-10C8152D951E}");
const QString motion = QStringLiteral("{23F7D170-9EC3-44BB-801D-BA7F0A7317B4}");
const QString themeFile = QStringLiteral("/ThemeCollect/ThemeCollect.json");
const QString filterFile = QStringLiteral("/FilterCollect/FilterCollect.json");
const QString off = QStringLiteral("--off");

QStringList favourite(const QString& guid)
{
    return {QStringLiteral("favourite"), guid};
}

#ifndef Q_OS_WIN
/// Lets a process write only the beginning of a file.
void fillTheDisk()
{
    std::signal(SIGXFSZ, SIG_IGN); // writing fails instead
    const rlimit limit = {512, 512};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}
#endif

} // namespace

/// Tests mvres favourite.
class TestMvresFavourite : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void marksInTheFileOfTheKind_data();
    void marksInTheFileOfTheKind();
    void takesTheMarkAway();
    void marksAddUpOverRuns();
    void writesTheGuidAsTheCatalogueDoes();
    void printsJson();
    void refusesKindsWithoutFavourites_data();
    void refusesKindsWithoutFavourites();
    void refusesUnknownGuids();
    void failsIfItCannotBeSaved_data();
    void failsIfItCannotBeSaved();
    void fullDiskLeavesTheOldMarks();

private:
    QJsonObject marks(const QString& file) const;

    Mvres m_mvres;
};

void TestMvresFavourite::init()
{
    m_mvres = Mvres();
    m_mvres.useSamples();
}

QJsonObject TestMvresFavourite::marks(const QString& file) const
{
    return QJsonDocument::fromJson(CatalogueFiles::read(m_mvres.data() + file)).object();
}

void TestMvresFavourite::marksInTheFileOfTheKind_data()
{
    QTest::addColumn<QString>("guid");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("otherFile");
    QTest::newRow("theme") << theme << QStringLiteral("New Year") << themeFile << filterFile;
    QTest::newRow("filter") << filter << QStringLiteral("Sepia") << filterFile << themeFile;
    QTest::newRow("background") << background << QStringLiteral("Blue Silk") << filterFile
                                << themeFile;
}

void TestMvresFavourite::marksInTheFileOfTheKind()
{
    QFETCH(QString, guid);
    QFETCH(QString, name);
    QFETCH(QString, file);
    QFETCH(QString, otherFile);

    const Outcome outcome = m_mvres.run(favourite(guid));
    QCOMPARE(QString::fromUtf8(outcome.out),
             QStringLiteral("%1 %2 is a favourite\n").arg(guid, name));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(marks(file)[guid], QJsonValue(true));
    QVERIFY(!marks(otherFile).contains(guid));
}

void TestMvresFavourite::takesTheMarkAway()
{
    QCOMPARE(m_mvres.run(favourite(theme)).status, 0);
    const Outcome outcome = m_mvres.run(favourite(theme) + QStringList{off});
    QCOMPARE(QString::fromUtf8(outcome.out),
             theme + QStringLiteral(" New Year is not a favourite\n"));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(marks(themeFile)[theme], QJsonValue(false));

    const Outcome again = m_mvres.run(favourite(theme) + QStringList{off});
    QCOMPARE(again.out, outcome.out);
    QCOMPARE(again.status, 0);
}

void TestMvresFavourite::marksAddUpOverRuns()
{
    for (const QString& guid : {filter, background, theme})
        QCOMPARE(m_mvres.run(favourite(guid)).status, 0);
    const QStringList lines =
        m_mvres.run({QStringLiteral("list")}).lines().filter(QStringLiteral("  favourite  "));
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).startsWith(filter));
    QVERIFY(lines.at(1).startsWith(theme));
    QVERIFY(lines.at(2).startsWith(background));

    QCOMPARE(m_mvres.run(favourite(filter) + QStringList{off}).status, 0);
    QCOMPARE(marks(filterFile)[filter], QJsonValue(false));
    QCOMPARE(marks(filterFile)[background], QJsonValue(true));
    QCOMPARE(marks(themeFile)[theme], QJsonValue(true));
}

void TestMvresFavourite::writesTheGuidAsTheCatalogueDoes()
{
    QCOMPARE(m_mvres.run(favourite(theme.toLower().mid(1, 36))).status, 0);
    QCOMPARE(marks(themeFile)[theme], QJsonValue(true));
    QVERIFY(!marks(themeFile).contains(theme.toLower()));
}

void TestMvresFavourite::printsJson()
{
    const Outcome on = m_mvres.run(favourite(theme) + QStringList{QStringLiteral("--json")});
    QCOMPARE(on.status, 0);
    const QJsonObject item = QJsonDocument::fromJson(on.out).object();
    QCOMPARE(item[QStringLiteral("guid")].toString(), theme);
    QCOMPARE(item[QStringLiteral("favourite")], QJsonValue(true));
    const Outcome gone = m_mvres.run(favourite(theme) + QStringList{QStringLiteral("--json"), off});
    QCOMPARE(QJsonDocument::fromJson(gone.out)[QStringLiteral("favourite")], QJsonValue(false));
}

void TestMvresFavourite::refusesKindsWithoutFavourites_data()
{
    QTest::addColumn<QString>("guid");
    QTest::addColumn<QString>("kind");
    QTest::newRow("transition") << transition << QStringLiteral("transition");
    QTest::newRow("motion") << motion << QStringLiteral("motion");
}

void TestMvresFavourite::refusesKindsWithoutFavourites()
{
    QFETCH(QString, guid);
    QFETCH(QString, kind);
    const Outcome outcome = m_mvres.run(favourite(guid));
    QCOMPARE(QString::fromUtf8(outcome.err),
             QStringLiteral("mvres: %1 is a %2, which cannot be a favourite\n").arg(guid, kind));
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
    QVERIFY(!marks(filterFile).contains(guid));
    QVERIFY(!marks(themeFile).contains(guid));
}

void TestMvresFavourite::refusesUnknownGuids()
{
    const Outcome outcome = m_mvres.run(favourite(QStringLiteral("{A}")));
    QCOMPARE(outcome.err, QByteArray("mvres: unknown GUID {A}\n"));
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
}

void TestMvresFavourite::failsIfItCannotBeSaved_data()
{
    QTest::addColumn<QString>("inTheWay"); // a file in place of a folder
    QTest::addColumn<QString>("guid");
    QTest::addColumn<QString>("file");
    QTest::newRow("no data folder") << QString() << theme << themeFile;
    QTest::newRow("no folder of the themes")
        << QStringLiteral("/ThemeCollect") << theme << themeFile;
    QTest::newRow("no folder of the filters")
        << QStringLiteral("/FilterCollect") << background << filterFile;
}

void TestMvresFavourite::failsIfItCannotBeSaved()
{
    QFETCH(QString, inTheWay);
    QFETCH(QString, guid);
    QFETCH(QString, file);
    CatalogueFiles::write(m_mvres.data() + inTheWay, "a file");

    const Outcome outcome = m_mvres.run(favourite(guid));
    QCOMPARE(QString::fromUtf8(outcome.err),
             QStringLiteral("mvres: the favourites cannot be written: %1%2: its folder cannot be "
                            "written\n")
                 .arg(m_mvres.data(), file));
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
}

/// The file can be read but not replaced.
void TestMvresFavourite::fullDiskLeavesTheOldMarks()
{
#ifdef Q_OS_WIN
    QSKIP("This system cannot limit the size of files.");
#else
    QCOMPARE(m_mvres.run(favourite(filter)).status, 0);
    QCOMPARE(m_mvres.run({QStringLiteral("list")}).status, 0); // enters all filters
    PreparedProcess process(&fillTheDisk);
    m_mvres.start(process, favourite(background));
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(QString::fromUtf8(outcome.err),
             QStringLiteral("mvres: the favourites cannot be written: %1%2: File too large\n")
                 .arg(m_mvres.data(), filterFile));
    QCOMPARE(outcome.status, 1);
    QCOMPARE(marks(filterFile)[filter], QJsonValue(true));
    QVERIFY(!marks(filterFile)[background].toBool());
#endif
}

MV_TEST_MAIN(TestMvresFavourite)

} // namespace tst_mvres_favourite

#include "tst_mvres_favourite.moc"
