#include "Mvpublish.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString home(const QString& name)
{
    return TestHome::path() + QLatin1Char('/') + name;
}

QJsonObject manifest(const QString& folder)
{
    return QJsonDocument::fromJson(CatalogueFiles::read(folder + text("/item.json"))).object();
}

} // namespace

/// mvpublish new
class TestMvpublishNew : public QObject
{
    Q_OBJECT

private slots:
    void itemCanBePublishedAsItIs_data();
    void itemCanBePublishedAsItIs();
    void guidsAreFresh();
    void worksInTheCurrentFolder();
    void folderIsMadeOfTheName_data();
    void folderIsMadeOfTheName();
    void keepsTheManifestOfTheSource();
    void namesOfEveryScript();
    void refuses();
};

void TestMvpublishNew::itemCanBePublishedAsItIs_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"filter", "transition", "motion", "theme", "bgmaterial"})
        QTest::newRow(kind) << text(kind);
}

/// What it makes builds, and is clean.
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
    QCOMPARE(lint.out, QByteArray("clean\n"));
    QCOMPARE(lint.status, 0);
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
    QTest::newRow("no letters") << text("日本") << text("filter");
}

void TestMvpublishNew::folderIsMadeOfTheName()
{
    QFETCH(QString, name);
    QFETCH(QString, folder);
    const QString source = home(text("names"));
    QCOMPARE(Mvpublish::run({text("new"), text("filter"), name, text("--in"), source}).status, 0);
    QCOMPARE(manifest(source + QLatin1Char('/') + folder).value(text("name")).toString(), name);
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
    QVERIFY(CatalogueFiles::read(home(text("scripts/filter/item.json"))).contains(name.toUtf8()));
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
