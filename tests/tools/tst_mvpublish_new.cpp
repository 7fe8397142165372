// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenTree.h"
#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

QString home(const QString& name)
{
    return TestHome::path() + QLatin1Char('/') + name;
}

QJsonObject manifest(const QString& folder)
{
    return QJsonDocument::fromJson(CatalogueFiles::read(folder + text("/item.json"))).object();
}

} // namespace

/// Tests mvpublish new.
class TestMvpublishNew : public QObject
{
    Q_OBJECT

private slots:
    void itemCanBePublishedAsItIs_data();
    void itemCanBePublishedAsItIs();
    void placeholdersAreNamedUntilTheyAreReplaced();
    void guidsAreFresh();
    void worksInTheCurrentFolder();
    void folderIsMadeOfTheName_data();
    void folderIsMadeOfTheName();
    void asciiFolderIsMadeOfTheName_data();
    void asciiFolderIsMadeOfTheName();
    void keepsTheManifestOfTheSource();
    void namesOfEveryScript();
    void nameInAnotherEncodingIsRefused();
    void differentNamesHaveDifferentFolders();
    void refuses();
};

void TestMvpublishNew::itemCanBePublishedAsItIs_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"filter", "transition", "motion", "theme", "bgmaterial"})
        QTest::newRow(kind) << text(kind);
}

/// The new item can be built despite its placeholders, and clients can use it.
void TestMvpublishNew::itemCanBePublishedAsItIs()
{
    QFETCH(QString, kind);
    const QString source = home(kind);
    const Outcome outcome =
        Mvpublish::run({text("new"), kind, text("My Item"), text("--in"), source});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.lines(), QStringList{source + text("/my-item/item.json")});
    QCOMPARE(outcome.status, 0);
    const QJsonObject item = manifest(source + text("/my-item"));
    QCOMPARE(item.value(text("kind")).toString(), kind);
    QCOMPARE(item.value(text("name")).toString(), text("My Item"));
    const QString tree = home(kind + text("-tree"));
    QCOMPARE(Mvpublish::build(source, tree), QString());
    const Outcome lint = Mvpublish::run({text("lint"), tree});
    QVERIFY2(!lint.out.contains("error"), lint.out.constData());
    QCOMPARE(lint.status, 0);
}

/// Build and lint warn about them, but a warning does not fail either.
void TestMvpublishNew::placeholdersAreNamedUntilTheyAreReplaced()
{
    const QString source = home(text("replaced"));
    const QString tree = home(text("replaced-tree"));
    for (const char* kind : {"theme", "bgmaterial"})
        QCOMPARE(Mvpublish::run({text("new"), text(kind), text(kind), text("--in"), source}).status,
                 0);
    const Outcome build = Mvpublish::run({text("build"), source, tree});
    const QStringList pictures{text("bgmaterial/bgmaterial.png"), text("bgmaterial/background.png"),
                               text("theme/theme.png"), text("theme/theme.gif")};
    QByteArray expected;
    for (const QString& picture : pictures)
        expected += "mvpublish: warning: " + picture.section(QLatin1Char('/'), 0, 0).toUtf8() + ": "
            + picture.section(QLatin1Char('/'), 1).toUtf8()
            + " is still the placeholder that the item began with\n";
    QCOMPARE(build.err, expected);
    QCOMPARE(build.status, 0);
    const Outcome lint = Mvpublish::run({text("lint"), tree});
    QCOMPARE(lint.status, 0);
    QCOMPARE(lint.lines().filter(text("warning: is still the placeholder")).size(), 4);
    QCOMPARE(lint.lines().constLast(), text("4 warnings"));
    const QJsonArray findings = BrokenTree::findings(tree);
    QCOMPARE(findings.size(), 4);
    for (const QJsonValue& finding : findings) {
        QCOMPARE(finding.toObject().value(text("code")).toString(), text("placeholder"));
        QCOMPARE(finding.toObject().value(text("severity")).toString(), text("warning"));
    }
    for (const QString& picture : pictures)
        CatalogueFiles::write(source + QLatin1Char('/') + picture,
                              picture.endsWith(text("gif")) ? SmallSource::animation()
                                                            : SmallSource::thumbnail());
    QCOMPARE(Mvpublish::run({text("build"), source, tree}).err, QByteArray());
    QCOMPARE(Mvpublish::run({text("lint"), tree}).out, QByteArray("clean\n"));
}

void TestMvpublishNew::guidsAreFresh()
{
    QSet<QString> guids;
    const QRegularExpression form(
        text("^\\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\}$"));
    for (const char* name : {"a", "b", "c"}) {
        QCOMPARE(Mvpublish::run(
                     {text("new"), text("filter"), text(name), text("--in"), home(text("fresh"))})
                     .status,
                 0);
        const QString guid =
            manifest(home(text("fresh/") + text(name))).value(text("guid")).toString();
        QVERIFY2(form.match(guid).hasMatch(), qPrintable(guid));
        guids.insert(guid);
    }
    QCOMPARE(guids.size(), 3);
}

void TestMvpublishNew::worksInTheCurrentFolder()
{
    QVERIFY(QDir().mkpath(home(text("current"))));
    const Outcome outcome = ConsoleProgram::run(
        Mvpublish::program(), {text("new"), text("motion"), text("Sway")}, home(text("current")));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines(), QStringList{text("sway/item.json")});
    QVERIFY(QFile::exists(home(text("current/sway/item.json"))));
    QVERIFY(QFile::exists(home(text("current/catalogue.json"))));
}

void TestMvpublishNew::folderIsMadeOfTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("folder");
    QTest::newRow("blanks and capitals") << text("My  Best Look") << text("my-best-look");
    QTest::newRow("other characters") << text("../Up & Away!") << text("up-away");
    QTest::newRow("accents") << text("Naïve Café") << text("naive-cafe");
    QTest::newRow("accents of their own") << text("nai\xcc\x88ve") << text("naive");
    QTest::newRow("two accents on a letter") << text("Phở Hà Nội") << text("pho-ha-noi");
    QTest::newRow("dot on a capital") << text("İzmir") << text("izmir");
    QTest::newRow("letters that are no accented ones") << text("Große Øl") << text("große-øl");
    QTest::newRow("Japanese") << text("日本語テーマ") << text("日本語テーマ");
    QTest::newRow("half-width Japanese") << text("ｶﾞｰﾄﾞ") << text("ガード");
    QTest::newRow("Chinese") << text("春節") << text("春節");
    QTest::newRow("beyond the first plane") << text("\xf0\xa0\x80\x8b") << text("\xf0\xa0\x80\x8b");
    QTest::newRow("Cyrillic") << text("Зимний День") << text("зимний-день");
    QTest::newRow("Devanagari with a joiner") << text("क्\xe2\x80\x8dषण") << text("क्षण");
    QTest::newRow("Arabic") << text("عيد الفطر") << text("عيد-الفطر");
    QTest::newRow("mark of direction") << text("up\xe2\x80\xaepu") << text("uppu");
    QTest::newRow("no letters") << text("\xf0\x9f\x8e\x89") << text("filter-6146299c");
    QTest::newRow("folder of the source's own") << text("Shared") << text("shared-filter");
    QTest::newRow("folder of the \"none\" entry") << text("None!") << text("none-filter");
    QTest::newRow("device of Windows") << text("Con") << text("con-filter");
    QTest::newRow("long") << text("語").repeated(200)
                          << text("語").repeated(37) + text("-33ebd179");
}

void TestMvpublishNew::folderIsMadeOfTheName()
{
    QFETCH(QString, name);
    QFETCH(QString, folder);
    const QString source = home(text("names"));
    QCOMPARE(Mvpublish::run({text("new"), text("filter"), name, text("--in"), source}).status, 0);
    QCOMPARE(manifest(source + QLatin1Char('/') + folder).value(text("name")).toString(), name);
}

void TestMvpublishNew::asciiFolderIsMadeOfTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("folder");
    QTest::newRow("ASCII") << text("My  Best Look") << text("my-best-look");
    QTest::newRow("accents") << text("naïve") << text("naive");
    QTest::newRow("other letters between") << text("Große Øl 7") << text("gro-e-l-7-9f65070c");
    QTest::newRow("Japanese") << text("日本語テーマ") << text("filter-e47ad328");
    QTest::newRow("Chinese") << text("春節") << text("filter-251bf390");
    QTest::newRow("Chinese and ASCII") << text("春節 2027") << text("2027-5625cc69");
    QTest::newRow("special folder") << text("Shared") << text("shared-filter");
    QTest::newRow("special folder and others") << text("春節 Shared") << text("shared-182f8e35");
}

/// The name's digest, unique to it, replaces the letters.
void TestMvpublishNew::asciiFolderIsMadeOfTheName()
{
    QFETCH(QString, name);
    QFETCH(QString, folder);
    const QString source = home(text("ascii"));
    const QStringList arguments{text("new"),  text("filter"), name,
                                text("--in"), source,         text("--ascii")};
    const Outcome outcome = Mvpublish::run(arguments);
    QCOMPARE(outcome.lines(), QStringList{source + QLatin1Char('/') + folder + text("/item.json")});
    QCOMPARE(manifest(source + QLatin1Char('/') + folder).value(text("name")).toString(), name);
    QVERIFY(QFile::exists(source + QLatin1Char('/') + folder + QLatin1Char('/') + folder
                          + text(".png")));
}

void TestMvpublishNew::keepsTheManifestOfTheSource()
{
    const QString file = home(text("kept/catalogue.json"));
    CatalogueFiles::write(file, "{\"version\": \"7.1\"}");
    QCOMPARE(
        Mvpublish::run({text("new"), text("filter"), text("x"), text("--in"), home(text("kept"))})
            .status,
        0);
    QCOMPARE(CatalogueFiles::read(file), QByteArray("{\"version\": \"7.1\"}"));
}

void TestMvpublishNew::namesOfEveryScript()
{
    const QString name = text("\xf0\xa0\x80\x8b \xf0\x9f\x8e\x89");
    QProcess process;
    process.setProcessEnvironment(ConsoleProgram::utf8Environment());
    process.start(Mvpublish::program(),
                  {text("new"), text("filter"), name, text("--in"), home(text("scripts"))});
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY(CatalogueFiles::read(home(text("scripts/\xf0\xa0\x80\x8b/item.json")))
                .contains(name.toUtf8()));
}

/// A shell with a different encoding passes on such bytes.
void TestMvpublishNew::nameInAnotherEncodingIsRefused()
{
    const QString script =
        text("export LC_ALL=C.UTF-8; exec \"$0\" new filter \"$(printf 'bad\\377')\" --in \"$1\"");
    const QString source = home(text("encodings"));
    const Outcome outcome =
        ConsoleProgram::run(text("/bin/sh"), {text("-c"), script, Mvpublish::program(), source});
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: the name holds characters that cannot be shown\n"));
    QCOMPARE(outcome.status, 2);
    QVERIFY(!QFile::exists(source));
}

/// Every item must be publishable: its file names follow from its folder's name.
void TestMvpublishNew::differentNamesHaveDifferentFolders()
{
    const QString source = home(text("different"));
    const QStringList names{text("日本語テーマ"),     text("春節"), text("\xf0\x9f\x8e\x89"),
                            text("\xf0\x9f\x8e\x8a"), text("!!!"),  text("語").repeated(199),
                            text("語").repeated(200), text("か"),   text("が")};
    for (const QString& name : names)
        QCOMPARE(Mvpublish::run({text("new"), text("theme"), name, text("--in"), source}).status,
                 0);
    QCOMPARE(QDir(source).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), names.size());
    const QString tree = home(text("different-tree"));
    QCOMPARE(Mvpublish::build(source, tree), QString());
    QCOMPARE(Mvpublish::run({text("lint"), tree}).status, 0);
    // A name that differs in accents only is reported, and changes nothing.
    QCOMPARE(
        Mvpublish::run({text("new"), text("theme"), text("naive"), text("--in"), source}).status,
        0);
    const Outcome again =
        Mvpublish::run({text("new"), text("theme"), text("naïve"), text("--in"), source});
    QCOMPARE(QString::fromUtf8(again.err),
             text("mvpublish: ") + source + text("/naive/ is there already\n"));
    QCOMPARE(again.status, 2);
    QCOMPARE(manifest(source + text("/naive")).value(text("name")).toString(), text("naive"));
}

void TestMvpublishNew::refuses()
{
    const QString source = home(text("refused"));
    const QStringList in{text("--in"), source};
    const Outcome kind = Mvpublish::run(QStringList{text("new"), text("effect"), text("x")} + in);
    QCOMPARE(kind.err,
             QByteArray("mvpublish: \"effect\" is none of filter, transition, motion, theme, "
                        "bgmaterial\n"));
    QCOMPARE(kind.status, 2);
    const Outcome name =
        Mvpublish::run(QStringList{text("new"), text("filter"), text("a\nb")} + in);
    QCOMPARE(name.err, QByteArray("mvpublish: the name holds characters that cannot be shown\n"));
    QCOMPARE(name.status, 2);
    const Outcome length =
        Mvpublish::run(QStringList{text("new"), text("filter"), text("語").repeated(201)} + in);
    QCOMPARE(length.err,
             QByteArray("mvpublish: the name has 201 characters, and at most 200 are accepted\n"));
    QCOMPARE(length.status, 2);
    QVERIFY(!QFile::exists(source));
    QCOMPARE(Mvpublish::run(QStringList{text("new"), text("filter"), text("x")} + in).status, 0);
    const QByteArray before = CatalogueFiles::read(source + text("/x/item.json"));
    const Outcome again = Mvpublish::run(QStringList{text("new"), text("theme"), text("X")} + in);
    QCOMPARE(QString::fromUtf8(again.err),
             text("mvpublish: ") + source + text("/x/ is there already\n"));
    QCOMPARE(again.status, 2);
    QCOMPARE(CatalogueFiles::read(source + text("/x/item.json")), before);
}

MV_TEST_MAIN(TestMvpublishNew)
#include "tst_mvpublish_new.moc"
