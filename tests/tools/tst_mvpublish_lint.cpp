#include "host/Utils.h"
#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <functional>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString home(const char* name)
{
    return TestHome::path() + QLatin1Char('/') + text(name);
}

QString guid(const char* item)
{
    return SmallSource::guid(text(item));
}

/// The GUID as it stands in names of the config catalogue.
QString encoded(const char* item)
{
    return QString(guid(item)).replace(text("{"), text("%7B")).replace(text("}"), text("%7D"));
}

const QString config = text("ResourceConfig/resource_config.xml");
const QString display = text("ResourceConfig/resource_display.xml");
const QString displayAff = text("ResourceConfig/resource_display_aff.xml");
const QString versionFile = text("ResourceConfig/resource_version_v3.xml");
const QString noneGuid = text("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");

/// A copy of a clean tree that a test breaks.
class BrokenTree
{
public:
    explicit BrokenTree(const QString& clean)
        : m_folder(home("broken"))
    {
        QDir(m_folder).removeRecursively();
        Utils::copyDirectoryFiles(clean, m_folder, true);
    }

    QString folder() const { return m_folder; }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    QByteArray read(const QString& name) const { return CatalogueFiles::read(file(name)); }
    void write(const QString& name, const QByteArray& content) const
    {
        CatalogueFiles::write(file(name), content);
    }
    void remove(const QString& name) const { QFile::remove(file(name)); }
    /// Replaces a text in a file; it must be there.
    void replace(const QString& name, const QString& from, const QString& to) const
    {
        const QByteArray before = read(name);
        QByteArray after = before;
        after.replace(from.toUtf8(), to.toUtf8());
        if (after == before)
            qFatal("%s: no %s", qPrintable(name), qPrintable(from));
        write(name, after);
    }
    /// The same in every display catalogue.
    void replaceShown(const QString& from, const QString& to) const
    {
        for (const char* audience : {"", "_aff", "_aff_de"})
            replace(text("ResourceConfig/resource_display%1.xml").arg(text(audience)), from, to);
    }
    /// Lets the version files announce what is there.
    void announce() const
    {
        const QDir catalogues(file(text("ResourceConfig")));
        const QStringList versions = catalogues.entryList({text("resource_version*.xml")});
        for (const QString& name : versions) {
            QString shown = name;
            shown.replace(text("version"), text("display"));
            shown.remove(QRegularExpression(text("_v[0-9](?=\\.)")));
            announce(text("ResourceConfig/") + name, "dislplay", catalogues.filePath(shown));
            announce(text("ResourceConfig/") + name, "config",
                     catalogues.filePath(text("resource_config.xml")));
        }
    }

private:
    void announce(const QString& version, const char* element, const QString& catalogue) const
    {
        if (!QFileInfo::exists(catalogue))
            return;
        QString content = QString::fromUtf8(read(version));
        content.replace(QRegularExpression(text("<%1 value=\"[^\"]*\"").arg(text(element))),
                        text("<%1 value=\"%2\"").arg(text(element), Utils::getMD5(catalogue)));
        write(version, content.toUtf8());
    }

    QString m_folder;
};

using Break = std::function<void(const BrokenTree&)>;

QJsonArray findingsOf(const QString& tree)
{
    const Outcome outcome = Mvpublish::run({text("lint"), text("--json"), tree});
    return QJsonDocument::fromJson(outcome.out).object().value(text("findings")).toArray();
}

Break replace(const QString& file, const QString& from, const QString& to)
{
    return [=](const BrokenTree& tree) { tree.replace(file, from, to); };
}

Break remove(const QString& file)
{
    return [=](const BrokenTree& tree) { tree.remove(file); };
}

Break write(const QString& file, const QByteArray& content)
{
    return [=](const BrokenTree& tree) { tree.write(file, content); };
}

Break cut(const QString& file, int bytes)
{
    return [=](const BrokenTree& tree) { tree.write(file, tree.read(file).left(bytes)); };
}

QString entry(const QString& itemGuid, const char* more)
{
    return text("<Item><GUID>%1</GUID>%2</Item>").arg(itemGuid, text(more));
}

QString themeFile()
{
    return text("config/Themes/") + guid("film") + text(".xml");
}

QByteArray picture(const char* name)
{
    return CatalogueFiles::read(text(MV_SAMPLES) + text("/server/display/") + text(name));
}

} // namespace

Q_DECLARE_METATYPE(Break)

/// mvpublish lint: every fault gives one finding.
class TestMvpublishLint : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void cleanTree_data();
    void cleanTree();
    void brokenTree_data();
    void brokenTree();
    void brokenInstallation_data();
    void brokenInstallation();
    void wrongSum();
    void sumInCapitalsIsRight();
    void textNamesPlaceItemAndRemedy();
    void findingsStandInOrder();
    void jsonSaysWhatTheTreeIs();
    void whatIsNoTreeIsAFailure();
    void nothingIsWritten();

private:
    static void row(const char* name, const Break& change, const char* code, const QString& file,
                    const QString& item = QString());
    static void catalogueRows();
    static void guidRows();
    static void themeRows();
    static void nameRows();
    static void fileRows();
    static void pictureRows();
    static void editionRows();
    static void check(const QString& clean);
};

void TestMvpublishLint::initTestCase()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), home("server"),
                              {text("--edition"), text("standard"), text("--edition"), text("1"),
                               text("--edition"), text("3")}),
             QString());
    source.set(text("film"), "installed", true);
    source.set(text("zoom"), "builtIn", true);
    QVERIFY(QDir().mkpath(home("installed")));
    QCOMPARE(Mvpublish::build(source.folder(), home("installed/Resource"), {text("--installed")}),
             QString());
}

void TestMvpublishLint::cleanTree_data()
{
    QTest::addColumn<QString>("tree");
    QTest::newRow("server") << home("server");
    QTest::newRow("installation") << home("installed/Resource");
    QTest::newRow("folder of an installation") << home("installed");
    QTest::newRow("server of the samples") << text(MV_SAMPLES "/server");
    QTest::newRow("installation of the samples") << text(MV_SAMPLES "/installed");
}

void TestMvpublishLint::cleanTree()
{
    QFETCH(QString, tree);
    const Outcome outcome = Mvpublish::run({text("lint"), tree});
    QCOMPARE(outcome.out, QByteArray("clean\n"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

/// One finding: its code, where it stands, and the GUID of the item that it concerns.
void TestMvpublishLint::row(const char* name, const Break& change, const char* code,
                            const QString& file, const QString& item)
{
    QTest::newRow(name) << change << text(code) << file << item;
}

void TestMvpublishLint::catalogueRows()
{
    row("malformed config catalogue", replace(config, text("</ResourceConfig>"), QString()),
        "malformed", config);
    row("malformed display catalogue", replace(display, text("</BgMaterial>"), QString()),
        "malformed", display);
    row("malformed version file", replace(versionFile, text("<config"), text("<config<")),
        "malformed", versionFile);
    row("entities",
        replace(config, text("<ResourceConfig>"),
                text("<!DOCTYPE a [<!ENTITY b \"c\">]><ResourceConfig>")),
        "malformed", config);
    row("missing config catalogue", remove(config), "missing-file", config);
    row("missing display catalogue", remove(display), "missing-file", display);
    row(
        "no version file",
        [](const BrokenTree& tree) {
            for (const char* name : {"v3", "aff_v2", "aff_de_v2"})
                tree.remove(text("ResourceConfig/resource_version_%1.xml").arg(text(name)));
            for (const char* audience : {"", "_aff", "_aff_de"})
                tree.remove(text("ResourceConfig/resource_display%1.xml").arg(text(audience)));
            for (const char* half : {"config", "display"})
                QDir(tree.file(text(half))).removeRecursively();
            tree.write(config, "<a/>");
            QDir().mkpath(tree.file(text("config")));
        },
        "missing-file", text("ResourceConfig"));
    row("sum under another name", replace(versionFile, text("dislplay"), text("display")),
        "version", versionFile);
    row("version is no number", replace(versionFile, text("1.2.0"), text("1.x")), "version",
        versionFile);
    row(
        "version file too large",
        [](const BrokenTree& tree) {
            tree.write(versionFile,
                       tree.read(versionFile) + "<!--" + QByteArray(70000, 'x') + "-->");
        },
        "version", versionFile);
    row("malformed list of definitions",
        write(text("config/Motions/Motions.xml"), "<Motions><Item></Motions>"), "malformed",
        text("config/Motions/Motions.xml"));
    row("theme type", replace(displayAff, text("\"travel\""), text("\"Travel\"")), "theme-type",
        displayAff);
}

void TestMvpublishLint::guidRows()
{
    const auto everywhere = [](const QString& to) -> Break {
        return [to](const BrokenTree& tree) {
            tree.replace(config, text("<GUID>") + guid("paper"), text("<GUID>") + to);
            tree.replaceShown(text("<GUID>") + guid("paper"), text("<GUID>") + to);
        };
    };
    const QString tail = guid("paper") + text("/../x");
    row("malformed GUID", everywhere(text("{PAPER}")), "guid-malformed", config, text("{PAPER}"));
    row("GUID with a tail", everywhere(tail), "guid-malformed", config, tail);
    row("GUID of zeros", everywhere(text("{00000000-0000-0000-0000-000000000000}")),
        "guid-malformed", config, text("{00000000-0000-0000-0000-000000000000}"));
    row("GUID in small letters", everywhere(guid("paper").toLower()), "guid-lower-case", config,
        guid("paper").toLower());
    row("GUID in small letters in a display catalogue",
        replace(display, guid("fade"), guid("fade").toLower()), "guid-lower-case", display,
        guid("fade").toLower());
    row("malformed GUID in a display catalogue",
        replace(display, text("</Motion>"), entry(text("zoom"), "") + text("</Motion>")),
        "guid-malformed", display, text("zoom"));
    row("same GUID twice",
        replace(config, text("</BgMaterial>"),
                entry(guid("fade"), "<UrlCnf>/Transitions/%7B1%7D.xml</UrlCnf>")
                        .replace(text("%7B1%7D"), encoded("fade"))
                    + text("</BgMaterial>")),
        "guid-duplicate", config, guid("fade"));
    row(
        "same entry twice",
        [](const BrokenTree& tree) {
            tree.replace(display, text("</Transition>"),
                         text("<Item><GUID>%1</GUID><Name>x</Name><UrlThumb>fade "
                              "1.png</UrlThumb></Item></Transition>")
                             .arg(guid("fade")));
        },
        "guid-duplicate", display, guid("fade"));
    row("unknown GUID",
        replace(display, text("</Motion>"),
                entry(CatalogueFiles::guid(99), "<Name>x</Name>") + text("</Motion>")),
        "guid-unknown", display, CatalogueFiles::guid(99));
    row("GUID of another kind",
        replace(display, text("</Motion>"),
                entry(guid("fade"), "<Name>x</Name>") + text("</Motion>")),
        "guid-wrong-kind", display, guid("fade"));
    row(
        "reserved GUID",
        [everywhere](const BrokenTree& tree) {
            const QString reserved = text("{20A63E69-32DC-415E-AA04-6A3D705F8290}");
            everywhere(reserved)(tree);
            QDir(tree.file(text("config/BgMaterial")))
                .rename(guid("paper") + text(".xml"), reserved + text(".xml"));
        },
        "guid-reserved", config, text("{20A63E69-32DC-415E-AA04-6A3D705F8290}"));
    row("\"none\" among motions",
        replace(display, text("</Motion>"), entry(noneGuid, "<Name>x</Name>") + text("</Motion>")),
        "none-misplaced", display, noneGuid);
    row("\"none\" among themes",
        replace(display, text("<Group Type=\"travel\">"),
                text("<Group Type=\"travel\">") + entry(noneGuid, "<Name>x</Name>")),
        "none-misplaced", display, noneGuid);
    row("\"none\" in the config catalogue",
        replace(config, text("</Filter>"), entry(noneGuid, "") + text("</Filter>")),
        "none-misplaced", config, noneGuid);
    row("item without a name", replace(display, text("<Name>My paper</Name>"), QString()),
        "no-name", display, guid("paper"));
}

void TestMvpublishLint::themeRows()
{
    const auto slot = [](const QString& from, const QString& to) {
        return replace(themeFile(), text(">") + from + text("<"), text(">") + to + text("<"));
    };
    row("malformed theme", cut(themeFile(), 200), "malformed", themeFile(), guid("film"));
    row("missing theme", remove(themeFile()), "missing-file", config, guid("film"));
    row("theme of another GUID",
        replace(themeFile(), text("<GUID>") + guid("film"), text("<GUID>") + guid("look")),
        "theme-guid", themeFile(), guid("film"));
    row("dependency on nothing", slot(guid("zoom"), CatalogueFiles::guid(99)), "dependency-unknown",
        themeFile(), guid("film"));
    row("dependency of the wrong kind", slot(guid("zoom"), guid("fade")), "guid-wrong-kind",
        themeFile(), guid("film"));
    row("dependency in small letters", slot(guid("zoom"), guid("zoom").toLower()),
        "guid-lower-case", themeFile(), guid("zoom").toLower());
    row("malformed dependency", slot(guid("zoom"), text("zoom")), "guid-malformed", themeFile(),
        text("zoom"));
    row("theme that depends on itself", slot(guid("zoom"), guid("film")), "theme-self", themeFile(),
        guid("film"));
    row(
        "theme without a config name",
        [](const BrokenTree& tree) {
            tree.replace(config, text("<UrlCnf>/Themes/") + encoded("film") + text(".xml</UrlCnf>"),
                         QString());
            tree.remove(themeFile());
        },
        "no-name", config, guid("film"));
    row(
        "theme without an animation",
        [](const BrokenTree& tree) {
            tree.replaceShown(text("<UrlGif>film.gif</UrlGif>"), QString());
            tree.remove(text("display/Themes/film.gif"));
        },
        "no-name", display, guid("film"));
}

void TestMvpublishLint::nameRows()
{
    const QString zoom = text("/Motions/") + encoded("zoom");
    const QString zoomFolder = text("config/Motions/") + guid("zoom");
    const auto resource = [=](const QString& to, bool keepFile) -> Break {
        return [=](const BrokenTree& tree) {
            tree.replace(config, text(">") + zoom + text("/pack.zip<"), text(">") + to + text("<"));
            if (!keepFile)
                tree.remove(zoomFolder + text("/pack.zip"));
        };
    };
    const auto thumbnail = [](const QString& to) -> Break {
        return [=](const BrokenTree& tree) {
            tree.replaceShown(text(">paper 1.png<"), text(">") + to + text("<"));
            tree.remove(text("display/BgMaterial/paper 1.png"));
        };
    };
    row("resource above the tree", resource(text("/../secret.zip"), false), "outside", config,
        guid("zoom"));
    row("resource above the tree, encoded", resource(text("/%2E%2e/secret.zip"), false), "outside",
        config, guid("zoom"));
    row("resource above its folder", resource(zoom + text("/../") + text("a.zip"), false),
        "outside", config, guid("zoom"));
    row("thumbnail above the tree", thumbnail(text("../../a.png")), "outside", display,
        guid("paper"));
    row("resource with braces",
        resource(text("/Motions/") + guid("zoom") + text("/pack.zip"), true), "encoding", config,
        guid("zoom"));
    row("resource with a blank",
        replace(config, zoom + text("/notes/read%20me.txt"), zoom + text("/notes/read me.txt")),
        "encoding", config, guid("zoom"));
    row("resource with a question mark", resource(zoom + text("/pack.zip?"), false), "encoding",
        config, guid("zoom"));
    row(
        "resource with a stray percent sign",
        [=](const BrokenTree& tree) {
            resource(zoom + text("/pack.zip%"), true)(tree);
            QDir(tree.file(zoomFolder)).rename(text("pack.zip"), text("pack.zip%"));
        },
        "encoding", config, guid("zoom"));
    row("resource without a slash", resource(text("pack.zip"), true), "address", config,
        guid("zoom"));
    row(
        "music half encoded",
        [](const BrokenTree& tree) {
            tree.replace(config, text("Slow%20Song.mp3"), text("a b%20c.mp3"));
            tree.remove(text("config/ThemesBgm/Slow Song.mp3"));
            tree.write(text("config/ThemesBgm/a b c.mp3"), "a song");
        },
        "address", config, guid("film"));
    row(
        "thumbnail with a slash in front",
        [=](const BrokenTree& tree) {
            thumbnail(text("/a.png"))(tree);
            tree.write(text("display/a.png"), SmallSource::thumbnail());
        },
        "address", display, guid("paper"));
    row("item without a thumbnail", thumbnail(QString()), "no-name", display, guid("paper"));
}

void TestMvpublishLint::fileRows()
{
    const QString zoom = text("config/Motions/") + guid("zoom");
    row("missing definition", remove(zoom + text(".xml")), "missing-file", config, guid("zoom"));
    row("missing resource", remove(zoom + text("/pack.zip")), "missing-file", config, guid("zoom"));
    row("missing music", remove(text("config/ThemesBgm/Slow Song.mp3")), "missing-file", config,
        guid("film"));
    row("missing thumbnail", remove(text("display/VideoFilters/look 1.png")), "missing-file",
        display, guid("look"));
    row("missing animation", remove(text("display/Themes/film.gif")), "missing-file", display,
        guid("film"));
    row("missing picture of \"none\"", remove(text("display/BgMaterial/Calm.png")), "missing-file",
        display, noneGuid);
    row("malformed definition", write(zoom + text(".xml"), "<Motion>\n<a>"), "malformed",
        zoom + text(".xml"), guid("zoom"));
    row("cut archive", cut(zoom + text("/pack.zip"), 100), "archive", zoom + text("/pack.zip"),
        guid("zoom"));
    row(
        "archive with a flipped bit",
        [=](const BrokenTree& tree) {
            QByteArray bytes = tree.read(zoom + text("/pack.zip"));
            bytes[40] = static_cast<char>(bytes.at(40) ^ 0x10);
            tree.write(zoom + text("/pack.zip"), bytes);
        },
        "archive", zoom + text("/pack.zip"), guid("zoom"));
    row("unused file", write(text("config/Themes/old.zip"), "old"), "unused-file",
        text("config/Themes/old.zip"));
    row("unused file of a publisher's editor", write(text("display/.DS_Store"), "x"), "unused-file",
        text("display/.DS_Store"));
    row(
        "unused item",
        [](const BrokenTree& tree) {
            for (const char* audience : {"", "_aff", "_aff_de"}) {
                const QString name =
                    text("ResourceConfig/resource_display%1.xml").arg(text(audience));
                QString content = QString::fromUtf8(tree.read(name));
                content.remove(QRegularExpression(
                    text("<Item>\\s*<GUID>\\%1</GUID>.*?</Item>").arg(guid("paper")),
                    QRegularExpression::DotMatchesEverythingOption));
                tree.write(name, content.toUtf8());
            }
            tree.remove(text("display/BgMaterial/paper 1.png"));
        },
        "unused-item", config, guid("paper"));
}

void TestMvpublishLint::pictureRows()
{
    const QString thumb = text("display/BgMaterial/paper 1.png");
    const QString animation = text("display/Themes/film.gif");
    const QByteArray jpeg = picture("Themes/alpine-journey.jpg");
    row("thumbnail is no picture", write(thumb, "a picture"), "picture", thumb, guid("paper"));
    row("thumbnail is empty", write(thumb, ""), "picture", thumb, guid("paper"));
    row("cut PNG", cut(thumb, 1000), "picture", thumb, guid("paper"));
    row("cut JPEG", write(thumb, jpeg.left(jpeg.size() / 2)), "picture", thumb, guid("paper"));
    row("square thumbnail",
        write(thumb,
              QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAGQAAABkAQAAAABYmaj5AAAAFElEQVR42mNkY"
                                     "PgPhIwMo4xRBhUZAL0lAhF7m6"
                                     "oJAAAAAElFTkSuQmCC")),
        "picture-size", thumb, guid("paper"));
    row(
        "animation too small to see",
        [=](const BrokenTree& tree) {
            tree.write(
                animation,
                QByteArray::fromHex("47494638396110000900800000000000ffffff2c000000001000090000020c"
                                    "848fa9cbed0fa39cb4da0b003b"));
        },
        "picture-size", animation, guid("film"));
    row("animation is no GIF", write(animation, SmallSource::thumbnail()), "picture", animation,
        guid("film"));
    row("cut animation", cut(animation, 5000), "picture", animation, guid("film"));
    row("picture of \"none\"", write(text("display/VideoFilters/Elegance.png"), "x"), "picture",
        text("display/VideoFilters/Elegance.png"), noneGuid);
}

void TestMvpublishLint::editionRows()
{
    row("item in one edition only",
        replace(display, text("</Transition>"),
                text("<Item><GUID>%1</GUID><Name>x</Name></Item></Transition>")
                    .arg(CatalogueFiles::guid(99))),
        "guid-unknown", display, CatalogueFiles::guid(99));
    row(
        "item missing in an edition",
        [](const BrokenTree& tree) {
            QString content = QString::fromUtf8(tree.read(displayAff));
            content.remove(
                QRegularExpression(text("<Item>\\s*<GUID>\\%1</GUID>.*?</Item>").arg(guid("fade")),
                                   QRegularExpression::DotMatchesEverythingOption));
            tree.write(displayAff, content.toUtf8());
        },
        "editions", displayAff, guid("fade"));
    row("item with another thumbnail in an edition",
        replace(displayAff, text("look 1.png"), text("title 1.png")), "editions", displayAff,
        guid("look"));
    row("text in one edition only", replace(displayAff, text("<IsText>1"), text("<IsText>0")),
        "editions", displayAff, guid("title"));
    row("versions differ",
        replace(text("ResourceConfig/resource_version_aff_de_v2.xml"), text("1.2.0"),
                text("1.3.0")),
        "editions", text("ResourceConfig/resource_version_aff_de_v2.xml"));
    row("display catalogue without a version file",
        remove(text("ResourceConfig/resource_version_aff_v2.xml")), "unused-file", displayAff);
    row(
        "no \"none\" entry in an edition",
        [](const BrokenTree& tree) {
            QString content = QString::fromUtf8(tree.read(displayAff));
            const int at = content.indexOf(text("<Filter>"));
            const int end = content.indexOf(text("</Item>"), at);
            tree.write(displayAff,
                       (content.left(at) + text("<Filter>") + content.mid(end + 7)).toUtf8());
        },
        "none-missing", displayAff, noneGuid);
}

void TestMvpublishLint::brokenTree_data()
{
    QTest::addColumn<Break>("change");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("item");
    catalogueRows();
    guidRows();
    themeRows();
    nameRows();
    fileRows();
    pictureRows();
    editionRows();
}

void TestMvpublishLint::check(const QString& clean)
{
    QFETCH(Break, change);
    QFETCH(QString, code);
    QFETCH(QString, file);
    QFETCH(QString, item);
    const BrokenTree tree(clean);
    change(tree);
    tree.announce();
    const QJsonArray findings = findingsOf(tree.folder());
    QVERIFY2(findings.size() == 1, QJsonDocument(findings).toJson().constData());
    const QJsonObject finding = findings.at(0).toObject();
    QCOMPARE(finding.value(text("code")).toString(), code);
    QCOMPARE(finding.value(text("file")).toString(), file);
    QVERIFY2(finding.value(text("item")).toString().startsWith(item),
             qPrintable(finding.value(text("item")).toString()));
    QCOMPARE(finding.value(text("item")).toString().isEmpty(), item.isEmpty());
    QVERIFY(!finding.value(text("message")).toString().isEmpty());
    QVERIFY(!finding.value(text("advice")).toString().isEmpty());
}

void TestMvpublishLint::brokenTree()
{
    check(home("server"));
}

void TestMvpublishLint::brokenInstallation_data()
{
    QTest::addColumn<Break>("change");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("item");
    const QString zoom = text("Motions/") + guid("zoom");
    row("missing file of a built-in item", remove(zoom + text("/pack.zip")), "missing-file", config,
        guid("zoom"));
    row("missing definition of a built-in item", remove(zoom + text(".xml")), "missing-file",
        config, guid("zoom"));
    row("missing preview", remove(text("display/Themes/film.gif")), "missing-file", display,
        guid("film"));
    row("malformed theme types", write(text("ResourceConfig/ThemeType.json"), "{\n]"), "malformed",
        text("ResourceConfig/ThemeType.json"));
    row("unused file", write(text("Themes/old.zip"), "old"), "unused-file", text("Themes/old.zip"));
    row("version",
        replace(text("ResourceConfig/resource_version.xml"), text("dislplay"), text("display")),
        "version", text("ResourceConfig/resource_version.xml"));
}

void TestMvpublishLint::brokenInstallation()
{
    check(home("installed/Resource"));
}

void TestMvpublishLint::wrongSum()
{
    const QVector<QPair<QString, int>> catalogues{{display, 1}, {config, 3}};
    for (const auto& catalogue : catalogues) {
        const BrokenTree tree(home("server"));
        tree.write(catalogue.first, tree.read(catalogue.first) + '\n');
        const QJsonArray findings = findingsOf(tree.folder());
        QCOMPARE(findings.size(), catalogue.second); // once for every edition that has it
        for (const QJsonValue& finding : findings)
            QCOMPARE(finding.toObject().value(text("code")).toString(), text("checksum"));
    }
}

void TestMvpublishLint::sumInCapitalsIsRight()
{
    const BrokenTree tree(home("server"));
    const QString sum = Utils::getMD5(tree.file(config));
    tree.replace(versionFile, sum, sum.toUpper());
    QCOMPARE(findingsOf(tree.folder()), QJsonArray());
}

void TestMvpublishLint::textNamesPlaceItemAndRemedy()
{
    const BrokenTree tree(home("server"));
    tree.remove(text("display/VideoFilters/look 1.png"));
    const Outcome outcome = Mvpublish::run({text("lint"), tree.folder()});
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.err, QByteArray());
    const QByteArray before = tree.read(display);
    const int line = before.left(before.indexOf(guid("look").toUtf8())).count('\n');
    QCOMPARE(outcome.lines(),
             (QStringList{text("ResourceConfig/resource_display.xml:%1: %2 My look: "
                               "display/VideoFilters/look 1.png is missing [missing-file]")
                              .arg(line)
                              .arg(guid("look")),
                          text("    publish the file, or take its name away"), text("1 finding")}));
}

void TestMvpublishLint::findingsStandInOrder()
{
    const BrokenTree tree(home("server"));
    tree.write(text("display/z.png"), "z");
    tree.write(text("config/a.zip"), "a");
    tree.remove(text("display/VideoFilters/title 1.png"));
    tree.remove(text("display/VideoFilters/look 1.png"));
    QStringList places;
    const QJsonArray findings = findingsOf(tree.folder());
    int last = 0;
    for (const QJsonValue& value : findings) {
        const QJsonObject finding = value.toObject();
        places.append(finding.value(text("file")).toString());
        if (places.constLast() == display) {
            QVERIFY(finding.value(text("line")).toInt() > last);
            last = finding.value(text("line")).toInt();
        }
    }
    QCOMPARE(places, (QStringList{display, display, text("config/a.zip"), text("display/z.png")}));
}

void TestMvpublishLint::jsonSaysWhatTheTreeIs()
{
    const auto parse = [](const QString& tree) {
        const Outcome outcome = Mvpublish::run({text("lint"), tree, text("--json")});
        return QJsonDocument::fromJson(outcome.out).object();
    };
    QJsonObject expected{{text("tree"), home("server")},
                         {text("kind"), text("server")},
                         {text("findings"), QJsonArray()}};
    QCOMPARE(parse(home("server")), expected);
    expected.insert(text("tree"), home("installed/Resource"));
    expected.insert(text("kind"), text("installation"));
    QCOMPARE(parse(home("installed")), expected);
}

void TestMvpublishLint::whatIsNoTreeIsAFailure()
{
    const Outcome missing = Mvpublish::run({text("lint"), home("nowhere")});
    QCOMPARE(QString::fromUtf8(missing.err),
             text("mvpublish: no such folder: ") + home("nowhere") + QLatin1Char('\n'));
    QCOMPARE(missing.status, 2);
    const Outcome foreign = Mvpublish::run({text("lint"), home("source")});
    QCOMPARE(QString::fromUtf8(foreign.err),
             text("mvpublish: ") + home("source") + text(" holds no folder ResourceConfig\n"));
    QCOMPARE(foreign.status, 2);
    QCOMPARE(foreign.out, QByteArray());
}

/// Neither into the tree nor into the user's folders.
void TestMvpublishLint::nothingIsWritten()
{
    const BrokenTree tree(home("server"));
    tree.remove(text("display/VideoFilters/look 1.png"));
    QVERIFY(QDir(tree.file(text("display/Transitions"))).removeRecursively());
    const QStringList before = CatalogueFiles::filesBelow(TestHome::path());
    Mvpublish::run({text("lint"), tree.folder()});
    QCOMPARE(CatalogueFiles::filesBelow(TestHome::path()), before);
    QVERIFY(!QFileInfo::exists(tree.file(text("display/Transitions"))));
}

MV_TEST_MAIN(TestMvpublishLint)
#include "tst_mvpublish_lint.moc"
