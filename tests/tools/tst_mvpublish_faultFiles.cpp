// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "SourceFault.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <functional>

using namespace SourceFault;

/// Tests mvpublish build with faults in the source's files or their names.
class TestMvpublishFaultFiles : public QObject
{
    Q_OBJECT

private slots:
    void sourceIsRefused_data();
    void sourceIsRefused();

private:
    static void fileRows();
    static void pictureRows();
    static void linkRows();
    static void collisionRows();
};

void TestMvpublishFaultFiles::fileRows()
{
    const auto row = [](const char* name, const Change& change, const char* message) {
        QTest::newRow(name) << change << QByteArray(message);
    };
    row("no thumbnail", set("look", "thumbnail", nothing()),
        "look/item.json: \"thumbnail\" is missing");
    row("theme without animation", set("film", "animation", nothing()),
        "film/item.json: \"animation\" is missing");
    row("missing thumbnail", set("look", "thumbnail", text("other.png")),
        "look: other.png is missing");
    row("missing file", set("look", "files", QJsonArray{text("other.bin")}),
        "look: other.bin is missing");
    row("missing archive", set("look", "files", QJsonArray{text("other.zip")}),
        "look: other.zip is missing");
    row("missing shared file", set("look", "shared", QJsonArray{text("ThemesBgm/no.mp3")}),
        "look: ThemesBgm/no.mp3 is missing");
    row("missing definition", set("zoom", "definition", text("no.xml")), "zoom: no.xml is missing");
    row("up", set("look", "files", QJsonArray{text("../film/film.gif")}),
        "look: the file name \"../film/film.gif\" is not a plain path below its folder");
    row("absolute", set("look", "files", QJsonArray{text("/etc/passwd")}),
        "look: the file name \"/etc/passwd\" is not a plain path below its folder");
    row("backslash", set("look", "files", QJsonArray{text("a\\b")}),
        "look: the file name \"a\\b\" holds characters that not every client can store");
    row("device of Windows", set("look", "files", QJsonArray{text("nul.bin")}),
        "look: the file name \"nul.bin\" is a name that not every client can store");
    row("long", set("look", "files", QJsonArray{text("é").repeated(99) + text(".zip")}),
        qPrintable(
            text("look: the file name \"%1.zip\" has a part of 202 bytes in UTF-8, and at most "
                 "200 are accepted")
                .arg(text("é").repeated(99))));
    // Qt warns when asked for such a file.
    row("NUL", set("look", "files", QJsonArray{QString(QStringLiteral("a\0.bin"))}),
        "look: the file name \"a .bin\" holds characters that not every client can store");
    row(
        "thumbnail in a folder",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("look/a/b.png")), SmallSource::thumbnail());
            source.set(text("look"), "thumbnail", text("a/b.png"));
        },
        "look: a/b.png: a preview must be in the item's own folder");
    row(
        "animation that is no GIF",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("film/film.gif")), SmallSource::thumbnail());
        },
        "film: film.gif is not a GIF, as an animation must be");
    row(
        "thumbnail of another item",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("look/Title 1.PNG")), SmallSource::thumbnail());
            source.set(text("look"), "thumbnail", text("Title 1.PNG"));
        },
        "text/title: publishes display/VideoFilters/title 1.png, as look does; give it another "
        "name");
    row(
        "thumbnail of none",
        [](const SmallSource& source) {
            CatalogueFiles::write(source.file(text("paper/Calm.png")), SmallSource::thumbnail());
            source.set(text("paper"), "thumbnail", text("Calm.png"));
        },
        "paper: publishes display/BgMaterial/Calm.png, as the \"none\" entry does; give it another "
        "name");
    row(
        "own none pictures, one missing",
        [](const SmallSource& source) { source.addNonePicturesBut(text("Calm.png")); },
        "none/Calm.png: is missing");
}

/// Pictures that no client shows, or whose content does not match their names.
void TestMvpublishFaultFiles::pictureRows()
{
    const auto row = [](const char* name, const char* file, const QByteArray& content,
                        const Change& change, const char* message) {
        const Change write = [=](const SmallSource& source) {
            CatalogueFiles::write(source.file(text(file)), content);
            change(source);
        };
        QTest::newRow(name) << write << QByteArray(message);
    };
    const Change none = [](const SmallSource&) {};
    const auto share = set("paper", "shared", QJsonArray{text("a.png")});
    row("thumbnail that is a BMP", "look/look.bmp", SmallSource::bitmap(),
        set("look", "thumbnail", text("look.bmp")),
        "look: look.bmp is not a PNG, JPEG or GIF, and clients show no other pictures");
    row("BMP under a PNG's name", "look/look 1.png", SmallSource::bitmap(), none,
        "look: look 1.png is not a PNG, JPEG or GIF, and clients show no other pictures");
    row("empty thumbnail", "look/look 1.png", "", none,
        "look: look 1.png is not a PNG, JPEG or GIF, and clients show no other pictures");
    row("JPEG under a PNG's name", "look/look 1.png", SmallSource::jpeg(), none,
        "look: look 1.png is a JPEG, but its name does not end in .jpg or .jpeg");
    row("PNG without a suffix", "look/look", SmallSource::thumbnail(),
        set("look", "thumbnail", text("look")),
        "look: look is a PNG, but its name does not end in .png");
    row("animation under a PNG's name", "film/film.png", SmallSource::animation(),
        set("film", "animation", text("film.png")),
        "film: film.png is a GIF, but its name does not end in .gif");
    row("JPEG under a PNG's name among the item's files", "paper/paper.PNG", SmallSource::jpeg(),
        set("paper", "files", QJsonArray{text("paper.PNG")}),
        "paper: paper.PNG is a JPEG, but its name does not end in .jpg or .jpeg");
    row("shared text under a PNG's name", "shared/a.png", "a text", share,
        "paper: a.png is not a PNG, JPEG or GIF, and clients show no other pictures");
    row(
        "own none picture that is a JPEG", "none/Calm.png", SmallSource::jpeg(),
        [](const SmallSource& source) { source.addNonePicturesBut(text("Calm.png")); },
        "none/Calm.png: is a JPEG, but its name does not end in .jpg or .jpeg");
}

void TestMvpublishFaultFiles::linkRows()
{
    const auto row = [](const char* name, const Change& change, const char* message) {
        QTest::newRow(name) << change << QByteArray(message);
    };
    const auto pack = [](const char* link, const QString& to) -> Change {
        return [=](const SmallSource& source) {
            const QString file = source.file(text("zoom/") + text(link));
            QDir(file).removeRecursively();
            QVERIFY(UnusualFiles::link(to, file));
        };
    };
    CatalogueFiles::write(home("secrets/secret.txt"), "secret");
    row("packed folder out of the source", pack("pack", home("secrets")),
        "zoom: pack.zip is missing");
    row("folder in a packed folder", pack("pack/b/c", home("secrets")),
        "zoom: pack/b/c is neither a file nor a folder, so it cannot be packed");
    row(
        "shared folder out of the source",
        [](const SmallSource& source) {
            CatalogueFiles::write(home("songs/Slow Song.mp3"), "secret");
            QDir(source.file(text("shared/ThemesBgm"))).removeRecursively();
            UnusualFiles::link(home("songs"), source.file(text("shared/ThemesBgm")));
        },
        "film: ThemesBgm/Slow Song.mp3 is missing");
    row("archive of everything", set("zoom", "files", QJsonArray{text(".zip")}),
        "zoom: .zip is missing");
    if (UnusualFiles::hasFileLinks) {
        row(
            "link out of the source",
            [](const SmallSource& source) {
                CatalogueFiles::write(home("secret.txt"), "secret");
                UnusualFiles::link(home("secret.txt"), source.file(text("look/link.txt")));
                source.set(text("look"), "files", QJsonArray{text("link.txt")});
            },
            "look: link.txt is missing");
        row("file in a packed folder", pack("pack/link.txt", home("secrets/secret.txt")),
            "zoom: pack/link.txt is neither a file nor a folder, so it cannot be packed");
        row("link to nothing in a packed folder", pack("pack/.link", home("nowhere")),
            "zoom: pack/.link is neither a file nor a folder, so it cannot be packed");
        row("link within a packed folder", pack("pack/c.txt", text("a.txt")),
            "zoom: pack/c.txt is neither a file nor a folder, so it cannot be packed");
        row(
            "own none picture out of the source",
            [](const SmallSource& source) {
                source.addNonePicturesBut(text("Calm.png"));
                UnusualFiles::link(home("secrets/secret.txt"), source.file(text("none/Calm.png")));
            },
            "none/Calm.png: is missing");
    }
    // Only an item's own files are packed.
    const auto onlyFolder = [](const char* folder, const char* key, const QJsonValue& value) {
        return [=](const SmallSource& source) {
            CatalogueFiles::write(source.file(text(folder) + text("/x/a.txt")), "a");
            source.set(text("zoom"), key, value);
        };
    };
    row("shared archive of a folder", onlyFolder("shared", "shared", QJsonArray{text("x.zip")}),
        "zoom: x.zip is missing");
    row("definition from a folder", onlyFolder("zoom", "definition", text("x.zip")),
        "zoom: x.zip is missing");
    row("thumbnail from a folder", onlyFolder("zoom", "thumbnail", text("x.zip")),
        "zoom: x.zip is missing");
}

/// No two files may share a name, even on clients with case-insensitive disks.
void TestMvpublishFaultFiles::collisionRows()
{
    const auto row = [](const char* name, const QStringList& shared, const QString& message) {
        const Change change = [=](const SmallSource& source) {
            for (const QString& file : shared)
                CatalogueFiles::write(source.file(text("shared/") + file),
                                      SmallSource::animation());
            source.set(text("paper"), "shared", QJsonArray::fromStringList(shared));
        };
        QTest::newRow(name) << change << message.toUtf8();
    };
    const QString zoom = text("Motions/") + SmallSource::guid(text("zoom"));
    const auto twice = [](const QString& owner, const QString& name, const char* other) {
        return text("%1: publishes config/%2, as %3 does; give it another name")
            .arg(owner, name, text(other));
    };
    row("shared file and definition", {zoom + text(".xml")},
        twice(text("zoom"), zoom + text(".xml"), "paper"));
    row("shared file and own file", {zoom + text("/pack.ZIP")},
        twice(text("zoom"), zoom + text("/pack.zip"), "paper"));
    row("shared file and list", {text("Motions/motions.xml")},
        twice(text("paper"), text("Motions/motions.xml"), "the list of definitions"));
    row("shared files in capitals and small letters", {text("A/a.mp3"), text("A/A.mp3")},
        twice(text("paper"), text("A/A.mp3"), "paper"));
    row("shared file in place of a folder", {text("themesbgm")},
        text("paper: publishes the file config/themesbgm, but film publishes "
             "config/ThemesBgm/Slow Song.mp3 in a folder of that name; give it another name"));
    row("shared file among previews", {text("Display/Themes/film.gif")},
        text("paper: shares Display/Themes/film.gif, but installations keep other files in that "
             "folder; move it to another one"));
    row("shared file among catalogues", {text("ResourceConfig/resource_config.xml")},
        text("paper: shares ResourceConfig/resource_config.xml, but installations keep other files "
             "in that folder; move it to another one"));
}

void TestMvpublishFaultFiles::sourceIsRefused_data()
{
    addColumns();
    fileRows();
    pictureRows();
    linkRows();
    collisionRows();
}

void TestMvpublishFaultFiles::sourceIsRefused()
{
    verifyRefusal();
}

MV_TEST_MAIN(TestMvpublishFaultFiles)
#include "tst_mvpublish_faultFiles.moc"
