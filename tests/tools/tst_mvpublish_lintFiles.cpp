#include "BrokenTree.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Broken;

namespace {

QByteArray picture(const char* name)
{
    return CatalogueFiles::read(text(MV_SAMPLES) + text("/server/display/") + text(name));
}

} // namespace

/// mvpublish lint on names, files and pictures: every fault gives one finding.
class TestMvpublishLintFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void wholePicture_data();
    void wholePicture();
    void brokenTree_data();
    void brokenTree();

private:
    static void nameRows();
    static void fileRows();
    static void pictureRows();
};

void TestMvpublishLintFiles::initTestCase()
{
    QCOMPARE(BrokenTree::makeClean(), QString());
}

void TestMvpublishLintFiles::nameRows()
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

void TestMvpublishLintFiles::fileRows()
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
        display, none);
    row("definition is a link out of the tree", linkOut(zoom + text(".xml")), "outside", config,
        guid("zoom"));
    row("archive is a link out of the tree", linkOut(zoom + text("/pack.zip")), "outside", config,
        guid("zoom"));
    row("theme is a link out of the tree",
        linkOut(text("config/Themes/") + guid("film") + text(".xml")), "outside", config,
        guid("film"));
    row("thumbnail is a link out of the tree", linkOut(text("display/VideoFilters/look 1.png")),
        "outside", display, guid("look"));
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
                tree.removeEntry(text("ResourceConfig/resource_display%1.xml").arg(text(audience)),
                                 guid("paper"));
            }
            tree.remove(text("display/BgMaterial/paper 1.png"));
        },
        "unused-item", config, guid("paper"));
}

void TestMvpublishLintFiles::pictureRows()
{
    const QString thumb = text("display/BgMaterial/paper 1.png");
    const QString animation = text("display/Themes/film.gif");
    const QByteArray jpeg = picture("Themes/alpine-journey.jpg");
    row("thumbnail is no picture", write(thumb, "a picture"), "picture", thumb, guid("paper"));
    row("thumbnail is empty", write(thumb, ""), "picture", thumb, guid("paper"));
    row("cut PNG", cut(thumb, 1000), "picture", thumb, guid("paper"));
    row("cut JPEG", write(thumb, jpeg.left(jpeg.size() / 2)), "picture", thumb, guid("paper"));
    // An embedded picture has an end of its own.
    const QByteArray inner = jpeg.left(2) + "inner picture" + jpeg.right(2);
    const QByteArray segment =
        QByteArray("\xff\xe5\x00", 3) + static_cast<char>(inner.size() + 2) + inner;
    row("cut JPEG with a picture in it",
        write(thumb, (jpeg.left(2) + segment + jpeg.mid(2)).left(jpeg.size() / 2)), "picture",
        thumb, guid("paper"));
    row(
        "animation under a thumbnail's name",
        [=](const BrokenTree& tree) {
            tree.replaceShown(text("film.gif"), text("film.png"));
            tree.remove(animation);
            tree.write(text("display/Themes/film.png"), SmallSource::thumbnail());
        },
        "picture", text("display/Themes/film.png"), guid("film"));
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
        text("display/VideoFilters/Elegance.png"), none);
}

void TestMvpublishLintFiles::wholePicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    const QByteArray jpeg = picture("Themes/alpine-journey.jpg");
    QTest::newRow("JPEG") << text("paper 2.jpg") << jpeg;
    QTest::newRow("JPEG with something behind it") << text("paper 2.jpg") << jpeg + "appended";
    QTest::newRow("PNG under an animation's name")
        << text("paper 2.gif") << SmallSource::thumbnail();
}

void TestMvpublishLintFiles::wholePicture()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const BrokenTree tree(BrokenTree::cleanServer());
    tree.replaceShown(text("paper 1.png"), name);
    tree.remove(text("display/BgMaterial/paper 1.png"));
    tree.write(text("display/BgMaterial/") + name, content);
    tree.announce();
    QCOMPARE(BrokenTree::findings(tree.folder()), QJsonArray());
}

void TestMvpublishLintFiles::brokenTree_data()
{
    columns();
    nameRows();
    fileRows();
    pictureRows();
}

void TestMvpublishLintFiles::brokenTree()
{
    QCOMPARE(check(BrokenTree::cleanServer()), QString());
}

MV_TEST_MAIN(TestMvpublishLintFiles)
#include "tst_mvpublish_lintFiles.moc"
