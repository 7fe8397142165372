// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/MVThemeMgr.h"
#include "host/Utils.h"
#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "XmlTexts.h"

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>

/// Tests mvpublish build.
class TestMvpublishBuild : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void writesEveryFile();
    void editionsHaveTheirOwnFiles_data();
    void editionsHaveTheirOwnFiles();
    void editionsShareFiles();
    void sumsBelongToTheCatalogues();
    void archivesHoldTheFolder();
    void namesInTheConfigCatalogueAreEncoded();
    void builtInItemsHavePlainNames();
    void displayCatalogueFollowsTheOrder();
    void displayEntriesOfAKind();
    void noneEntriesComeFirst();
    void namesByAudience();
    void themeConfigHoldsItsSlots();
    void definitionComesFromTheManifest();
    void ownDefinitionIsPublishedUnchanged();
    void ownNonePicturesArePublished();
    void reportsWhatItWrote();
    void installation();

private:
    static QString m_out;
};

QString TestMvpublishBuild::m_out;

void TestMvpublishBuild::init()
{
    m_out = home(QTest::currentTestFunction()) + text("/tree");
    QDir().mkpath(QFileInfo(m_out).path());
}

void TestMvpublishBuild::writesEveryFile()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out, {text("--no-release")}), QString());
    QStringList expected{
        text("ResourceConfig/resource_config.xml"),     text("ResourceConfig/resource_display.xml"),
        text("ResourceConfig/resource_version_v3.xml"), text("config/Motions/Motions.xml"),
        text("config/ThemesBgm/Slow Song.mp3"),         text("config/Transitions/Transitions.xml"),
        text("config/VideoFilters/VideoFilters.xml"),   text("display/Themes/film.gif")};
    const QVector<QPair<QString, QString>> items{
        {text("look"), text("VideoFilters")}, {text("title"), text("VideoFilters")},
        {text("fade"), text("Transitions")},  {text("zoom"), text("Motions")},
        {text("film"), text("Themes")},       {text("paper"), text("BgMaterial")}};
    for (const auto& item : items) {
        const QString own =
            text("config/") + item.second + QLatin1Char('/') + SmallSource::guid(item.first);
        expected << own + text(".xml") << own + text("/pack.zip")
                 << own + text("/notes/read me.txt")
                 << text("display/") + item.second + QLatin1Char('/') + item.first + text(" 1.png");
    }
    const QStringList nonePictures = SmallSource::nonePictures();
    for (const QString& name : nonePictures)
        expected << text("display/VideoFilters/") + name << text("display/BgMaterial/") + name;
    expected.sort();
    QCOMPARE(CatalogueFiles::filesBelow(m_out), expected);
    QCOMPARE(CatalogueFiles::read(m_out + text("/config/ThemesBgm/Slow Song.mp3")),
             QByteArray("a slow song"));
    QCOMPARE(CatalogueFiles::read(m_out + text("/display/Themes/film.gif")),
             SmallSource::animation());
}

void TestMvpublishBuild::editionsHaveTheirOwnFiles_data()
{
    QTest::addColumn<QString>("edition");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("display");
    const auto row = [](const char* edition, const char* version, const char* display) {
        QTest::newRow(edition) << text(edition) << text(version) << text(display);
    };
    row("standard", "resource_version_v3.xml", "resource_display.xml");
    row("1", "resource_version_aff_v2.xml", "resource_display_aff.xml");
    row("2", "resource_version_v2.xml", "resource_display.xml");
    row("3", "resource_version_aff_de_v2.xml", "resource_display_aff_de.xml");
    row("4", "resource_version_aff_de_v2.xml", "resource_display_aff_de.xml");
    row("5", "resource_version_aff_v2.xml", "resource_display_aff.xml");
}

void TestMvpublishBuild::editionsHaveTheirOwnFiles()
{
    QFETCH(QString, edition);
    QFETCH(QString, version);
    QFETCH(QString, display);
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out, {text("--edition"), edition}), QString());
    QStringList expected{text("files.txt"), text("release.json"), text("resource_config.xml"),
                         version, display};
    expected.sort();
    QCOMPARE(QDir(m_out + text("/ResourceConfig")).entryList(QDir::Files), expected);
}

void TestMvpublishBuild::editionsShareFiles()
{
    const SmallSource source(home("source"));
    QStringList options;
    for (const char* edition : {"standard", "1", "2", "3", "4", "5"})
        options << text("--edition") << text(edition);
    QCOMPARE(Mvpublish::build(source.folder(), m_out, options), QString());
    QCOMPARE(QDir(m_out + text("/ResourceConfig")).entryList(QDir::Files).size(), 2 + 1 + 3 + 4);
}

void TestMvpublishBuild::sumsBelongToTheCatalogues()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out,
                              {text("--edition"), text("2"), text("--edition"), text("3")}),
             QString());
    const QString folder = m_out + text("/ResourceConfig/resource_");
    const auto sumOf = [](const QString& file) { return Utils::getMD5(file); };
    for (const auto& pair :
         {qMakePair(text("version_v2.xml"), text("display.xml")),
          qMakePair(text("version_aff_de_v2.xml"), text("display_aff_de.xml"))}) {
        const QDomElement root = parse(folder + pair.first);
        QCOMPARE(root.attribute(text("value")), text("1.2.0"));
        QCOMPARE(root.firstChildElement(text("dislplay")).attribute(text("value")),
                 sumOf(folder + pair.second));
        QCOMPARE(root.firstChildElement(text("config")).attribute(text("value")),
                 sumOf(folder + text("config.xml")));
    }
}

void TestMvpublishBuild::archivesHoldTheFolder()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QByteArray archive = CatalogueFiles::read(
        m_out + text("/config/Motions/") + SmallSource::guid(text("zoom")) + text("/pack.zip"));
    QVERIFY(archive.startsWith("PK\x03\x04"));
    // Sorted, each dated with the first day that the format can express.
    QVERIFY(archive.indexOf("a.txt") > 0);
    QVERIFY(archive.indexOf("a.txt") < archive.indexOf("b/settings.json"));
    QCOMPARE(archive.mid(10, 4).toHex(), QByteArray("00002100"));
    QVERIFY(archive.size() < 400 + 200); // 400 bytes of repeated text are packed
}

void TestMvpublishBuild::namesInTheConfigCatalogueAreEncoded()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QDomElement root = parse(m_out + text("/ResourceConfig/resource_config.xml"));
    const QDomElement theme = root.firstChildElement(text("Theme")).firstChildElement(text("Item"));
    const QString guid = SmallSource::guid(text("film"));
    QString encoded = guid;
    encoded.replace(text("{"), text("%7B")).replace(text("}"), text("%7D"));
    QCOMPARE(theme.firstChildElement(text("GUID")).text(), guid);
    QCOMPARE(theme.firstChildElement(text("UrlCnf")).text(),
             text("/Themes/") + encoded + text(".xml"));
    QCOMPARE(texts(theme, "Url"),
             (QStringList{text("/Themes/") + encoded + text("/pack.zip"),
                          text("/Themes/") + encoded + text("/notes/read%20me.txt"),
                          text("/ThemesBgm/Slow%20Song.mp3")}));
}

void TestMvpublishBuild::builtInItemsHavePlainNames()
{
    const SmallSource source(home("source"));
    source.set(text("film"), "builtIn", true);
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QDomElement theme =
        parse(m_out + text("/ResourceConfig/resource_config.xml")).firstChildElement(text("Theme"));
    QCOMPARE(texts(theme, "UrlCnf"), QStringList{SmallSource::guid(text("film")) + text(".xml")});
    QCOMPARE(texts(theme, "Url"),
             (QStringList{text("pack.zip"), text("notes/read me.txt"),
                          text("/ThemesBgm/Slow%20Song.mp3")}));
}

void TestMvpublishBuild::displayCatalogueFollowsTheOrder()
{
    const SmallSource source(home("source"));
    const auto names = [] {
        return texts(parse(m_out + text("/ResourceConfig/resource_display.xml"))
                         .firstChildElement(text("Filter")),
                     "Name");
    };
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QCOMPARE(names(), (QStringList{text("None"), text("My look"), text("My title")})); // by folder
    source.set(text("title"), "order", -1);
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QCOMPARE(names(), (QStringList{text("None"), text("My title"), text("My look")}));
}

void TestMvpublishBuild::displayEntriesOfAKind()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QDomElement root = parse(m_out + text("/ResourceConfig/resource_display.xml"));
    const QDomElement filters = root.firstChildElement(text("Filter"));
    QCOMPARE(texts(filters, "IsText"), (QStringList{text("0"), text("1")}));
    QCOMPARE(texts(filters, "UrlThumb"),
             (QStringList{text("None.png"), text("look 1.png"), text("title 1.png")}));
    const QDomElement themes = root.firstChildElement(text("Theme"));
    QStringList types;
    for (QDomElement group = themes.firstChildElement(); !group.isNull();
         group = group.nextSiblingElement()) {
        QCOMPARE(group.tagName(), text("Group"));
        types.append(group.attribute(text("Type")));
        QCOMPARE(texts(group, "Name"),
                 types.constLast() == text("travel") ? QStringList{text("My film")}
                                                     : QStringList());
    }
    QCOMPARE(types,
             (QStringList{text("festivals"), text("travel"), text("banquets"), text("others")}));
    QCOMPARE(texts(themes, "UrlGif"), QStringList{text("film.gif")});
}

void TestMvpublishBuild::noneEntriesComeFirst()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QDomElement root = parse(m_out + text("/ResourceConfig/resource_display.xml"));
    const QString none = text("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");
    for (const char* kind : {"Filter", "Transition", "Motion", "Theme", "BgMaterial"}) {
        const QStringList guids = texts(root.firstChildElement(text(kind)), "GUID");
        const bool has = text(kind) == text("Filter") || text(kind) == text("BgMaterial");
        QCOMPARE(guids.count(none), has ? 1 : 0);
        QCOMPARE(guids.constFirst() == none, has);
    }
    QVERIFY(
        !texts(parse(m_out + text("/ResourceConfig/resource_config.xml")), "GUID").contains(none));
}

void TestMvpublishBuild::namesByAudience()
{
    const SmallSource source(home("source"));
    source.set(text("paper"), "names",
               QJsonObject{{text("aff_de"), text("Mein Papier ß")}, {text("aff"), text("Paper!")}});
    source.set(QString(), "noneNames", QJsonObject{{text("aff_de"), text("Ohne")}});
    QCOMPARE(Mvpublish::build(source.folder(), m_out,
                              {text("--edition"), text("standard"), text("--edition"), text("5"),
                               text("--edition"), text("4")}),
             QString());
    const auto names = [](const char* file) {
        return texts(parse(m_out + text("/ResourceConfig/resource_display") + text(file))
                         .firstChildElement(text("BgMaterial")),
                     "Name");
    };
    QCOMPARE(names(".xml"), (QStringList{text("None"), text("My paper")}));
    QCOMPARE(names("_aff.xml"), (QStringList{text("None"), text("Paper!")}));
    QCOMPARE(names("_aff_de.xml"), (QStringList{text("Ohne"), text("Mein Papier ß")}));
}

void TestMvpublishBuild::themeConfigHoldsItsSlots()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    SThemes_a* theme = nullptr;
    MVThemeMgr::init()->read_resource_config_Themes_a(
        m_out + text("/config/Themes/") + SmallSource::guid(text("film")) + text(".xml"), theme);
    QVERIFY(theme);
    QCOMPARE(theme->m_qsGUID, SmallSource::guid(text("film")));
    QCOMPARE(theme->m_qsName, text("My film"));
    QCOMPARE(theme->m_vecItems.size(), 2);
    const SThemes_a::SDependArray& scene = theme->m_vecItems.constFirst();
    QCOMPARE(scene.at(eDependType_Text).m_qsGUID, QString());
    QCOMPARE(scene.at(eDependType_Filter).m_qsGUID, SmallSource::guid(text("look")));
    QCOMPARE(scene.at(eDependType_Filter).m_mapAttr.value(text("Strength")), text("0.5"));
    QCOMPARE(scene.at(eDependType_Element).m_qsGUID, SmallSource::guid(text("look")));
    QCOMPARE(scene.at(eDependType_Transition).m_qsGUID, SmallSource::guid(text("fade")));
    QCOMPARE(scene.at(eDependType_ImageMotion).m_qsGUID, SmallSource::guid(text("zoom")));
    QCOMPARE(theme->m_aStart.at(eDependType_Text).m_qsGUID, SmallSource::guid(text("title")));
    QCOMPARE(theme->m_aStart.at(eDependType_Text).m_mapAttr.value(text("Content")),
             text("Hello & <you>"));
    QCOMPARE(theme->m_aEnd.at(eDependType_Text).m_mapAttr.value(text("Content")), text("Bye"));
    QCOMPARE(theme->m_aMask.at(eDependType_Filter).m_qsGUID, SmallSource::guid(text("look")));
}

void TestMvpublishBuild::definitionComesFromTheManifest()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QDomElement root = parse(m_out + text("/config/VideoFilters/")
                                   + SmallSource::guid(text("look")) + text(".xml"));
    QCOMPARE(root.tagName(), text("VideoFilter"));
    QCOMPARE(texts(root, "GUID"), QStringList{SmallSource::guid(text("look"))});
    QCOMPARE(texts(root, "Name"), QStringList{text("My look")});
    QCOMPARE(texts(root, "Family"), QStringList{text("look")});
    QCOMPARE(texts(root, "Resource"), (QStringList{text("pack.zip"), text("notes/read me.txt")}));
    const QDomElement parameter =
        root.firstChildElement(text("Parameters")).firstChildElement(text("Parameter"));
    QCOMPARE(parameter.attribute(text("Name")), text("Tone"));
    QCOMPARE(parameter.attribute(text("Value")), text("0.8"));
    const QDomElement list = parse(m_out + text("/config/VideoFilters/VideoFilters.xml"));
    QCOMPARE(texts(list, "File"),
             (QStringList{SmallSource::guid(text("look")) + text(".xml"),
                          SmallSource::guid(text("title")) + text(".xml")}));
}

void TestMvpublishBuild::ownDefinitionIsPublishedUnchanged()
{
    const SmallSource source(home("source"));
    const QByteArray own = "<Look>\r\n\t<Shader/></Look>";
    CatalogueFiles::write(source.file(text("look/own.xml")), own);
    source.set(text("look"), "definition", text("own.xml"));
    source.set(text("look"), "family", QJsonValue(QJsonValue::Undefined));
    source.set(text("look"), "parameters", QJsonValue(QJsonValue::Undefined));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QCOMPARE(CatalogueFiles::read(m_out + text("/config/VideoFilters/")
                                  + SmallSource::guid(text("look")) + text(".xml")),
             own);
}

void TestMvpublishBuild::ownNonePicturesArePublished()
{
    const SmallSource source(home("source"));
    const QByteArray picture = SmallSource::thumbnail();
    const QStringList nonePictures = SmallSource::nonePictures();
    for (const QString& name : nonePictures)
        CatalogueFiles::write(source.file(text("none/") + name), picture + name.toLatin1());
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QCOMPARE(CatalogueFiles::read(m_out + text("/display/VideoFilters/Calm.png")),
             picture + "Calm.png");
    QCOMPARE(CatalogueFiles::read(m_out + text("/display/BgMaterial/None.png")),
             picture + "None.png");
}

void TestMvpublishBuild::reportsWhatItWrote()
{
    const SmallSource source(home("source"));
    const Outcome outcome =
        Mvpublish::run({text("build"), source.folder(), m_out, text("--edition"), text("2"),
                        text("--edition"), text("standard"), text("--no-release")});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.err, QByteArray());
    const int files = CatalogueFiles::filesBelow(m_out).size();
    const QRegularExpression form(
        QRegularExpression::escape(m_out)
        + text(": 6 items, %1 files, [0-9.]+ kB, for 2, standard$").arg(files));
    QVERIFY2(form.match(outcome.lines().constFirst()).hasMatch(), outcome.out.constData());
}

void TestMvpublishBuild::installation()
{
    const SmallSource source(home("source"));
    source.set(text("film"), "installed", true);
    source.set(text("zoom"), "builtIn", true);
    source.set(text("film"), "names", QJsonObject{{text("installed"), text("Old film")}});
    QCOMPARE(Mvpublish::build(source.folder(), m_out, {text("--installed")}), QString());
    const QString config = m_out + text("/ResourceConfig/resource_config.xml");
    const QString display = m_out + text("/ResourceConfig/resource_display.xml");
    // Shown: items that are marked or built in. Known: also the items that those use.
    QCOMPARE(texts(parse(display), "Name"),
             (QStringList{text("None"), text("My zoom"), text("Old film"), text("None")}));
    QCOMPARE(texts(parse(config), "GUID"),
             (QStringList{SmallSource::guid(text("look")), SmallSource::guid(text("title")),
                          SmallSource::guid(text("fade")), SmallSource::guid(text("zoom")),
                          SmallSource::guid(text("film"))}));
    const QDomElement version = parse(m_out + text("/ResourceConfig/resource_version.xml"));
    QCOMPARE(version.firstChildElement(text("dislplay")).attribute(text("value")),
             Utils::getMD5(display));
    QCOMPARE(version.firstChildElement(text("config")).attribute(text("value")),
             Utils::getMD5(config));
    QCOMPARE(CatalogueFiles::read(m_out + text("/ResourceConfig/ThemeType.json")).simplified(),
             QByteArray("{ \"banquets\": [ ], \"festivals\": [ ], \"travel\": [ \"")
                 + SmallSource::guid(text("film")).toUtf8() + "\" ] }");
    const QString zoom = text("Motions/") + SmallSource::guid(text("zoom"));
    const QStringList files = CatalogueFiles::filesBelow(m_out);
    QVERIFY(files.contains(zoom + text(".xml")));
    QVERIFY(files.contains(zoom + text("/pack.zip")));
    QVERIFY(files.contains(text("display/Themes/film.gif")));
    QVERIFY(files.filter(text("Themes/{")).isEmpty()); // it is still to be fetched
}

MV_TEST_MAIN(TestMvpublishBuild)
#include "tst_mvpublish_build.moc"
