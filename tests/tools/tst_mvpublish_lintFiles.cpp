// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenTree.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QJsonObject>

using namespace Broken;

/// Tests that mvpublish lint gives one finding for every fault in names, files and pictures.
class TestMvpublishLintFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void wholePicture_data();
    void wholePicture();
    void brokenTree_data();
    void brokenTree();
    void faultsOfOneItemAreAllFound();

private:
    static void nameRows();
    static void unusableNameRows();
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
            tree.replace(configFile, text(">") + zoom + text("/pack.zip<"),
                         text(">") + to + text("<"));
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
    row("resource above the tree", resource(text("/../secret.zip"), false), "outside", configFile,
        guid("zoom"));
    row("resource above the tree, encoded", resource(text("/%2E%2e/secret.zip"), false), "outside",
        configFile, guid("zoom"));
    row("resource above its folder", resource(zoom + text("/../") + text("a.zip"), false),
        "outside", configFile, guid("zoom"));
    row("thumbnail above the tree", thumbnail(text("../../a.png")), "outside", displayFile,
        guid("paper"));
    row("resource with braces",
        resource(text("/Motions/") + guid("zoom") + text("/pack.zip"), true), "encoding",
        configFile, guid("zoom"));
    row("resource with a blank",
        replace(configFile, zoom + text("/notes/read%20me.txt"), zoom + text("/notes/read me.txt")),
        "encoding", configFile, guid("zoom"));
    row("resource with a question mark", resource(zoom + text("/pack.zip?"), false), "encoding",
        configFile, guid("zoom"));
    row(
        "resource with a stray percent sign",
        [=](const BrokenTree& tree) {
            resource(zoom + text("/pack.zip%"), true)(tree);
            QDir(tree.file(zoomFolder)).rename(text("pack.zip"), text("pack.zip%"));
        },
        "encoding", configFile, guid("zoom"));
    row("resource without a slash", resource(text("pack.zip"), true), "address", configFile,
        guid("zoom"));
    row(
        "music half encoded",
        [](const BrokenTree& tree) {
            tree.replace(configFile, text("Slow%20Song.mp3"), text("a b%20c.mp3"));
            tree.remove(text("config/ThemesBgm/Slow Song.mp3"));
            tree.write(text("config/ThemesBgm/a b c.mp3"), "a song");
        },
        "address", configFile, guid("film"));
    row(
        "thumbnail with a slash in front",
        [=](const BrokenTree& tree) {
            thumbnail(text("/a.png"))(tree);
            tree.write(text("display/a.png"), SmallSource::thumbnail());
        },
        "address", displayFile, guid("paper"));
    row("item without a thumbnail", thumbnail(QString()), "no-name", displayFile, guid("paper"));
}

/// Names from which no client can derive a file path.
void TestMvpublishLintFiles::unusableNameRows()
{
    const QString zoom = text("/Motions/") + encoded("zoom");
    const auto resource = [=](const char* name, const char* file = "") -> Break {
        return [=](const BrokenTree& tree) {
            tree.replace(configFile, text(">") + zoom + text("/pack.zip<"),
                         text(">") + text(name) + text("<"));
            tree.remove(text("config/Motions/") + guid("zoom") + text("/pack.zip"));
            if (*file)
                tree.write(text(file), "there");
        };
    };
    const auto preview = [](const char* from, const char* name, const char* file = "") -> Break {
        return [=](const BrokenTree& tree) {
            tree.replaceShown(text(">") + text(from) + text("<"),
                              text(">") + text(name) + text("<"));
            for (const char* kind : {"Themes/", "BgMaterial/"})
                tree.remove(text("display/") + text(kind) + text(from));
            if (*file)
                tree.write(text(file), SmallSource::thumbnail());
        };
    };
    const QString item = guid("zoom");
    row("resource without a name", resource(""), "no-name", configFile, item);
    row("resource named by a slash", resource("/"), "no-name", configFile, item);
    row("resource named like a folder", resource("/ThemesBgm/"), "no-name", configFile, item);
    row("resource named by a dot", resource("/ThemesBgm/%2E"), "no-name", configFile, item);
    row("resource with a broken escape", resource("/100%.png", "config/100%.png"), "encoding",
        configFile, item);
    row("resource with half an escape", resource("/100%2", "config/100%2"), "encoding", configFile,
        item);
    row("resource with an escaped NUL", resource("/a%00.zip"), "encoding", configFile, item);
    row("resource with escapes that are no text", resource("/a%FF.zip"), "encoding", configFile,
        item);
    row("thumbnail named by a slash", preview("paper 1.png", "/"), "no-name", displayFile,
        guid("paper"));
    row("thumbnail with a broken escape", preview("paper 1.png", "/100%.png", "display/100%.png"),
        "encoding", displayFile, guid("paper"));
    row("animation named by a slash", preview("film.gif", "/"), "no-name", displayFile,
        guid("film"));
    row("animation named by a dot", preview("film.gif", "."), "no-name", displayFile, guid("film"));
    row(
        "definition named by a slash",
        [=](const BrokenTree& tree) {
            tree.replace(configFile, text(">") + zoom + text(".xml<"), text(">/<"));
            tree.remove(text("config/Motions/") + guid("zoom") + text(".xml"));
        },
        "no-name", configFile, item);
}

void TestMvpublishLintFiles::fileRows()
{
    const QString zoom = text("config/Motions/") + guid("zoom");
    row("missing definition", remove(zoom + text(".xml")), "missing-file", configFile,
        guid("zoom"));
    row("missing resource", remove(zoom + text("/pack.zip")), "missing-file", configFile,
        guid("zoom"));
    row("missing music", remove(text("config/ThemesBgm/Slow Song.mp3")), "missing-file", configFile,
        guid("film"));
    row("missing thumbnail", remove(text("display/VideoFilters/look 1.png")), "missing-file",
        displayFile, guid("look"));
    row("missing animation", remove(text("display/Themes/film.gif")), "missing-file", displayFile,
        guid("film"));
    row("missing picture of \"none\"", remove(text("display/BgMaterial/Calm.png")), "missing-file",
        displayFile, noneGuid);
    row("definition is a link out of the tree", linkOut(zoom + text(".xml")), "outside", configFile,
        guid("zoom"));
    row("archive is a link out of the tree", linkOut(zoom + text("/pack.zip")), "outside",
        configFile, guid("zoom"));
    row("theme is a link out of the tree",
        linkOut(text("config/Themes/") + guid("film") + text(".xml")), "outside", configFile,
        guid("film"));
    row("thumbnail is a link out of the tree", linkOut(text("display/VideoFilters/look 1.png")),
        "outside", displayFile, guid("look"));
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
        "unused-item", configFile, guid("paper"));
}

void TestMvpublishLintFiles::pictureRows()
{
    const QString thumb = text("display/BgMaterial/paper 1.png");
    const QString animation = text("display/Themes/film.gif");
    const QByteArray jpeg = SmallSource::jpeg();
    row("thumbnail is no picture", write(thumb, "a picture"), "picture", thumb, guid("paper"));
    row("thumbnail is empty", write(thumb, ""), "picture", thumb, guid("paper"));
    row("BMP under a PNG's name", write(thumb, SmallSource::bitmap()), "picture", thumb,
        guid("paper"));
    row("JPEG under a PNG's name", write(thumb, jpeg), "picture", thumb, guid("paper"));
    const auto renamed = [](const QString& from, const QString& to, const QByteArray& content) {
        return [=](const BrokenTree& tree) {
            tree.replaceShown(from.section(QLatin1Char('/'), -1), to.section(QLatin1Char('/'), -1));
            tree.remove(from);
            tree.write(to, content);
        };
    };
    const QString bitmap = text("display/BgMaterial/paper.bmp");
    row("thumbnail is a BMP", renamed(thumb, bitmap, SmallSource::bitmap()), "picture", bitmap,
        guid("paper"));
    const QString plain = text("display/BgMaterial/paper");
    row("PNG without a suffix", renamed(thumb, plain, SmallSource::thumbnail()), "picture", plain,
        guid("paper"));
    const QString still = text("display/BgMaterial/paper.gif");
    row("PNG under an animation's name", renamed(thumb, still, SmallSource::thumbnail()), "picture",
        still, guid("paper"));
    const QString moving = text("display/Themes/film.png");
    row("animation under a PNG's name", renamed(animation, moving, SmallSource::animation()),
        "picture", moving, guid("film"));
    const QString own = text("config/BgMaterial/") + guid("paper") + text("/paper.png");
    row(
        "JPEG under a PNG's name among an item's files",
        [=](const BrokenTree& tree) {
            tree.replace(configFile, encoded("paper") + text("/pack.zip"),
                         encoded("paper") + text("/paper.png"));
            tree.remove(text("config/BgMaterial/") + guid("paper") + text("/pack.zip"));
            tree.write(own, jpeg);
        },
        "picture", own, guid("paper"));
    row("cut PNG", cut(thumb, 1000), "picture", thumb, guid("paper"));
    const QString photo = text("display/BgMaterial/paper.jpg");
    row("cut JPEG", renamed(thumb, photo, jpeg.left(jpeg.size() / 2)), "picture", photo,
        guid("paper"));
    // An embedded picture has an end marker of its own.
    const QByteArray inner = jpeg.left(2) + "inner picture" + jpeg.right(2);
    const QByteArray segment =
        QByteArray("\xff\xe5\x00", 3) + static_cast<char>(inner.size() + 2) + inner;
    row("cut JPEG with a picture in it",
        renamed(thumb, photo, (jpeg.left(2) + segment + jpeg.mid(2)).left(jpeg.size() / 2)),
        "picture", photo, guid("paper"));
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
        text("display/VideoFilters/Elegance.png"), noneGuid);
}

void TestMvpublishLintFiles::wholePicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    const QByteArray jpeg = SmallSource::jpeg();
    QTest::newRow("JPEG") << text("paper 2.jpg") << jpeg;
    QTest::newRow("JPEG with something behind it") << text("paper 2.jpg") << jpeg + "appended";
    QTest::newRow("JPEG with the long suffix in capitals") << text("paper 2.JPEG") << jpeg;
    QTest::newRow("GIF") << text("paper 2.gif") << SmallSource::animation();
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
    unusableNameRows();
    fileRows();
    pictureRows();
}

void TestMvpublishLintFiles::brokenTree()
{
    if (isRowImpossible())
        QSKIP("This system has no such link or name.");
    QCOMPARE(check(BrokenTree::cleanServer()), QString());
}

void TestMvpublishLintFiles::faultsOfOneItemAreAllFound()
{
    const BrokenTree tree(BrokenTree::cleanServer());
    tree.replace(configFile, text(">/BgMaterial/") + encoded("paper") + text("/pack.zip<"),
                 text("><"));
    tree.remove(text("config/BgMaterial/") + guid("paper") + text("/pack.zip"));
    tree.replaceShown(text(">paper 1.png<"), text("><"));
    tree.remove(text("display/BgMaterial/paper 1.png"));
    tree.announce();
    const QJsonArray findings = BrokenTree::findings(tree.folder());
    QStringList files;
    for (const QJsonValue& finding : findings) {
        QCOMPARE(finding.toObject().value(text("code")).toString(), text("no-name"));
        files.append(finding.toObject().value(text("file")).toString());
    }
    QCOMPARE(files, (QStringList{configFile, displayFile}));
}

MV_TEST_MAIN(TestMvpublishLintFiles)
#include "tst_mvpublish_lintFiles.moc"
