// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "SmallCatalogue.h"
#include "support/TestMain.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tst_mvres_show {

namespace {

const QString whiteChristmas = QStringLiteral("{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}");
const QString newYear = QStringLiteral("{1611435C-464C-5F2E-B9D6-2247770B2131}");
// A filter used by themes only.
const QString hidden = QStringLiteral("{92FD4ED9-E67F-5805-9FCC-7B9E4B1A07C2}");

QJsonObject parsed(const Outcome& outcome)
{
    return QJsonDocument::fromJson(outcome.out).object();
}

QString kilobytes(const QString& file)
{
    return QString::number(static_cast<double>(QFileInfo(file).size()) / 1000.0, 'f', 1);
}

QStringList kindsOf(const QJsonArray& uses)
{
    QStringList kinds;
    for (const QJsonValue& use : uses)
        kinds.append(use[QStringLiteral("kind")].toString());
    kinds.removeDuplicates();
    kinds.sort();
    return kinds;
}

} // namespace

/// Tests mvres show.
class TestMvresShow : public QObject
{
    Q_OBJECT

private slots:
    void printsTheItemAndItsFiles();
    void printsSizesForPeople_data();
    void printsSizesForPeople();
    void printsDependencies();
    void printsAFileOnlyOnce();
    void jsonHoldsFilesWithAddresses();
    void jsonHoldsDependencies();
    void withoutHasMVThereAreNoDependencies();
    void readsAGuidInAnyForm_data();
    void readsAGuidInAnyForm();
    void refusesUnknownGuids_data();
    void refusesUnknownGuids();
    void showsItemsThatAreNotListed();
    void noneEntryNeedsNothing();
};

void TestMvresShow::printsTheItemAndItsFiles()
{
    Mvres mvres;
    mvres.useSamples();
    mvres.setServer(QStringLiteral("http://host/tree/"));
    const Outcome outcome = mvres.run({QStringLiteral("show"), whiteChristmas});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);

    const QString display = mvres.installed() + QStringLiteral("/Resource/display/Themes/");
    const QString theme = QStringLiteral("/Themes/") + whiteChristmas;
    const QString address =
        QStringLiteral("http://host/tree/config/Themes/%7BC03E1D76-2CEA-5E2A-8517-C805C9A0C695%7D");
    const QStringList expected{
        QStringLiteral("GUID        ") + whiteChristmas,
        QStringLiteral("kind        theme"),
        QStringLiteral("name        White Christmas"),
        QStringLiteral("theme type  festivals"),
        QStringLiteral("favourite   no"),
        QStringLiteral("missing     3"),
        QStringLiteral("thumbnail   %1white-christmas.jpg (%2 kB)")
            .arg(display, kilobytes(display + QStringLiteral("white-christmas.jpg"))),
        QStringLiteral("preview     %1white-christmas.gif (%2 kB)")
            .arg(display, kilobytes(display + QStringLiteral("white-christmas.gif"))),
        QStringLiteral("config      %1 (missing, from %2.xml)")
            .arg(mvres.downloadedFile(theme + QStringLiteral(".xml")), address),
        QStringLiteral("resource    %1 (missing, from %2/theme.zip)")
            .arg(mvres.downloadedFile(theme + QStringLiteral("/theme.zip")), address),
        QStringLiteral("resource    %1 (missing, from "
                       "http://host/tree/config/ThemesBgm/Snow%20Bells.mp3)")
            .arg(mvres.downloadedFile(QStringLiteral("/ThemesBgm/Snow Bells.mp3"))),
    };
    QCOMPARE(outcome.lines(), expected);
}

void TestMvresShow::printsSizesForPeople_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("text");
    const auto row = [](int size, const char* text) {
        QTest::newRow(text) << size << QString::fromLatin1(text);
    };
    row(0, "0 bytes");
    row(1, "1 byte");
    row(2, "2 bytes");
    row(999, "999 bytes");
    row(1000, "1.0 kB");
    row(12345, "12.3 kB");
    row(999949, "999.9 kB");
    row(999951, "1.0 MB");
    row(4049000, "4.0 MB");
}

void TestMvresShow::printsSizesForPeople()
{
    QFETCH(int, size);
    QFETCH(QString, text);
    const Mvres mvres;
    const QString name = QStringLiteral("/VideoFilters/one.zip");
    SmallCatalogue catalogue;
    catalogue.addFilter(1, QStringLiteral("One"), QString(), {name});
    catalogue.writeTo(mvres.installed());
    CatalogueFiles::write(mvres.downloadedFile(name), QByteArray(size, 'x'));
    const QStringList lines = mvres.run({QStringLiteral("show"), CatalogueFiles::guid(1)}).lines();
    QCOMPARE(lines.constLast(),
             QStringLiteral("resource    %1 (%2)").arg(mvres.downloadedFile(name), text));
}

void TestMvresShow::printsDependencies()
{
    Mvres mvres;
    mvres.useSamples();
    QCOMPARE(mvres.run({QStringLiteral("favourite"), newYear}).status, 0);
    const QStringList lines = mvres.run({QStringLiteral("show"), newYear}).lines();
    QVERIFY(lines.contains(QStringLiteral("favourite   yes")));
    QVERIFY(lines.contains(QStringLiteral("missing     0")));
    QVERIFY(lines.contains(QStringLiteral(
        "uses        transition {4AB14EF6-559F-4EE5-A809-10C8152D951E} Cross Fade")));
}

void TestMvresShow::printsAFileOnlyOnce()
{
    const Mvres mvres;
    SmallCatalogue catalogue;
    const QString shared = QStringLiteral("/VideoFilters/shared.zip");
    catalogue.addFilter(2, QStringLiteral("Two"), QString(), {shared});
    catalogue.addFilter(3, QString(), QString(), {shared});
    catalogue.addTheme(1, QStringLiteral("One"), QStringLiteral("/Themes/one.xml"));
    catalogue.writeTo(mvres.installed());
    CatalogueFiles::write(mvres.downloadedFile(QStringLiteral("/Themes/one.xml")),
                          SmallCatalogue::themeConfig({2, 3, 2}));
    const QStringList lines = mvres.run({QStringLiteral("show"), CatalogueFiles::guid(1)}).lines();
    QCOMPARE(lines.filter(QStringLiteral("resource  ")).size(), 1);
    QCOMPARE(lines.filter(QStringLiteral("uses  ")),
             (QStringList{
                 QStringLiteral("uses        filter %1 Two").arg(CatalogueFiles::guid(2)),
                 QStringLiteral("uses        filter %1 ").arg(CatalogueFiles::guid(3)),
             }));
    QVERIFY(lines.contains(QStringLiteral("missing     1")));
}

void TestMvresShow::jsonHoldsFilesWithAddresses()
{
    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome =
        mvres.run({QStringLiteral("show"), whiteChristmas, QStringLiteral("--json"),
                   QStringLiteral("--server"), QStringLiteral("https://host")});
    QCOMPARE(outcome.status, 0);
    const QJsonObject item = parsed(outcome);
    QCOMPARE(item[QStringLiteral("name")].toString(), QStringLiteral("White Christmas"));
    QCOMPARE(item[QStringLiteral("missing")].toInt(), 3);
    QCOMPARE(item[QStringLiteral("uses")].toArray().size(), 0); // unknown until its config is read
    const QJsonArray files = item[QStringLiteral("files")].toArray();
    QCOMPARE(files.size(), 5);

    const QString gif =
        mvres.installed() + QStringLiteral("/Resource/display/Themes/white-christmas.gif");
    const QJsonObject preview{
        {QStringLiteral("what"), QStringLiteral("preview")},
        {QStringLiteral("path"), gif},
        {QStringLiteral("url"), QStringLiteral("https://host/display/Themes/white-christmas.gif")},
        {QStringLiteral("present"), true},
        {QStringLiteral("size"), QFileInfo(gif).size()},
    };
    QCOMPARE(files.at(1).toObject(), preview);
    const QJsonObject music{
        {QStringLiteral("what"), QStringLiteral("resource")},
        {QStringLiteral("path"), mvres.downloadedFile(QStringLiteral("/ThemesBgm/Snow Bells.mp3"))},
        {QStringLiteral("url"), QStringLiteral("https://host/config/ThemesBgm/Snow%20Bells.mp3")},
        {QStringLiteral("present"), false},
        {QStringLiteral("size"), 0},
    };
    QCOMPARE(files.at(4).toObject(), music);
}

void TestMvresShow::jsonHoldsDependencies()
{
    Mvres mvres;
    mvres.useSamples();
    const QJsonObject item =
        parsed(mvres.run({QStringLiteral("show"), newYear, QStringLiteral("--json")}));
    QVERIFY(item[QStringLiteral("ready")].toBool());
    const QJsonArray uses = item[QStringLiteral("uses")].toArray();
    QCOMPARE(kindsOf(uses),
             (QStringList{QStringLiteral("filter"), QStringLiteral("motion"),
                          QStringLiteral("transition")}));
    const QJsonObject fade{
        {QStringLiteral("guid"), QStringLiteral("{4AB14EF6-559F-4EE5-A809-10C8152D951E}")},
        {QStringLiteral("kind"), QStringLiteral("transition")},
        {QStringLiteral("name"), QStringLiteral("Cross Fade")},
    };
    QVERIFY(uses.contains(fade));
}

void TestMvresShow::withoutHasMVThereAreNoDependencies()
{
    Mvres mvres;
    mvres.useSamples();
    const QJsonObject item =
        parsed(mvres.run({QStringLiteral("show"), newYear, QStringLiteral("--json"),
                          QStringLiteral("--param"), QStringLiteral("hasMV=0")}));
    QCOMPARE(item[QStringLiteral("guid")].toString(), newYear);
    QCOMPARE(item[QStringLiteral("uses")].toArray(), QJsonArray());
}

void TestMvresShow::readsAGuidInAnyForm_data()
{
    QTest::addColumn<QString>("guid");
    const QString bare = whiteChristmas.mid(1, 36);
    QTest::newRow("as it stands") << whiteChristmas;
    QTest::newRow("lower case") << whiteChristmas.toLower();
    QTest::newRow("without braces") << bare;
    QTest::newRow("lower case without braces") << bare.toLower();
}

void TestMvresShow::readsAGuidInAnyForm()
{
    QFETCH(QString, guid);
    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome = mvres.run({QStringLiteral("show"), guid});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().constFirst(), QStringLiteral("GUID        ") + whiteChristmas);
}

void TestMvresShow::refusesUnknownGuids_data()
{
    QTest::addColumn<QString>("guid");
    QTest::newRow("of no item") << QStringLiteral("{11111111-2CEA-5E2A-8517-C805C9A0C695}");
    QTest::newRow("null") << QStringLiteral("{00000000-0000-0000-0000-000000000000}");
    QTest::newRow("a name") << QStringLiteral("White Christmas");
    QTest::newRow("empty") << QString();
    QTest::newRow("with a tail") << whiteChristmas + QLatin1Char('x');
    QTest::newRow("without braces, with a tail") << whiteChristmas.mid(1, 36) + QLatin1Char('0');
    QTest::newRow("cut off") << whiteChristmas.left(30);
    QTest::newRow("one brace") << whiteChristmas.left(37);
}

void TestMvresShow::refusesUnknownGuids()
{
    QFETCH(QString, guid);
    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome = mvres.run({QStringLiteral("show"), guid});
    QCOMPARE(outcome.err, "mvres: unknown GUID " + guid.toUtf8() + '\n');
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
}

void TestMvresShow::showsItemsThatAreNotListed()
{
    Mvres mvres;
    mvres.useSamples();
    QVERIFY(!mvres.run({QStringLiteral("list")}).out.contains(hidden.toUtf8()));
    const Outcome outcome = mvres.run({QStringLiteral("show"), hidden});
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.lines().contains(QStringLiteral("kind        filter")));
    QVERIFY(outcome.lines().contains(QStringLiteral("missing     2")));
}

void TestMvresShow::noneEntryNeedsNothing()
{
    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome = mvres.run(
        {QStringLiteral("show"), QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}")});
    QCOMPARE(outcome.status, 0);
    QVERIFY(outcome.lines().contains(QStringLiteral("name        None")));
    QVERIFY(outcome.lines().contains(QStringLiteral("missing     0")));
}

MV_TEST_MAIN(TestMvresShow)

} // namespace tst_mvres_show

#include "tst_mvres_show.moc"
