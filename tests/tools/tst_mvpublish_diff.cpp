#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString home(const char* name)
{
    return TestHome::path() + QLatin1Char('/') + text(name);
}

} // namespace

/// mvpublish diff
class TestMvpublishDiff : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void sameTree();
    void renamedItem();
    void addedItem();
    void removedItem();
    void changedFile();
    void catalogueOfAnotherEditionDoesNotCount();
    void bytesAreThoseOfTheFiles();
    void whatIsNoTreeIsAFailure();

private:
    static void build(const SmallSource& source, const QStringList& options = {});
    static Outcome diff() { return Mvpublish::run({text("diff"), home("old"), home("new")}); }
    /// The lines that begin so, without what stands in brackets.
    static QStringList lines(const Outcome& outcome, const char* beginning);
};

void TestMvpublishDiff::init()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), home("old")), QString());
}

void TestMvpublishDiff::build(const SmallSource& source, const QStringList& options)
{
    QCOMPARE(Mvpublish::build(source.folder(), home("new"), options), QString());
}

QStringList TestMvpublishDiff::lines(const Outcome& outcome, const char* beginning)
{
    QStringList result;
    const QStringList all = outcome.lines();
    for (const QString& line : all) {
        if (line.startsWith(text(beginning)))
            result.append(QString(line).remove(QRegularExpression(text(" \\([^)]*\\)$"))));
    }
    return result;
}

void TestMvpublishDiff::sameTree()
{
    build(SmallSource(home("source")));
    const Outcome outcome = diff();
    QCOMPARE(outcome.out, QByteArray("no difference\n"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvpublishDiff::renamedItem()
{
    const SmallSource source(home("source"));
    source.set(text("fade"), "name", text("Slow fade"));
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(lines(outcome, "renamed"),
             QStringList{text("renamed transition ") + SmallSource::guid(text("fade"))
                         + text(" My fade -> Slow fade")});
    QCOMPARE(lines(outcome, "catalogue"),
             (QStringList{text("catalogue ResourceConfig/resource_display.xml"),
                          text("catalogue ResourceConfig/resource_version_v3.xml")}));
    // Both name the item too.
    QCOMPARE(lines(outcome, "changed"),
             (QStringList{text("changed file config/Transitions/Transitions.xml"),
                          text("changed file config/Transitions/") + SmallSource::guid(text("fade"))
                              + text(".xml")}));
    QCOMPARE(lines(outcome, "added") + lines(outcome, "removed") + lines(outcome, "new"),
             QStringList());
}

void TestMvpublishDiff::addedItem()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::run(
                 {text("new"), text("bgmaterial"), text("Stone"), text("--in"), source.folder()})
                 .status,
             0);
    build(source);
    const Outcome outcome = diff();
    const QString guid = source.manifest(text("stone")).value(text("guid")).toString();
    QCOMPARE(lines(outcome, "added"),
             QStringList{text("added bgmaterial ") + guid + text(" Stone")});
    QCOMPARE(lines(outcome, "new file"),
             (QStringList{text("new file config/BgMaterial/") + guid + text(".xml"),
                          text("new file config/BgMaterial/") + guid + text("/background.png"),
                          text("new file display/BgMaterial/stone.png")}));
    QCOMPARE(lines(outcome, "catalogue").size(), 3);
    QCOMPARE(lines(outcome, "changed"), QStringList());
}

void TestMvpublishDiff::removedItem()
{
    const SmallSource source(home("source"));
    QVERIFY(QDir(source.file(text("paper"))).removeRecursively());
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(lines(outcome, "removed bgmaterial"),
             QStringList{text("removed bgmaterial ") + SmallSource::guid(text("paper"))
                         + text(" My paper")});
    QCOMPARE(lines(outcome, "removed file").size(), 4);
    QVERIFY(outcome.lines().constLast().endsWith(text(", 0 bytes of new files)")));
}

/// Whoever has a file keeps it: only its presence is looked at.
void TestMvpublishDiff::changedFile()
{
    const SmallSource source(home("source"));
    CatalogueFiles::write(source.file(text("zoom/notes/read me.txt")), "Other notes");
    build(source);
    const Outcome outcome = diff();
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.lines(),
             (QStringList{text("changed file config/Motions/") + SmallSource::guid(text("zoom"))
                              + text("/notes/read me.txt (11 bytes)"),
                          text("note: whoever has a changed file keeps the old one; publish it "
                               "under another name to replace it"),
                          text("to transfer: 0 bytes (0 bytes of catalogues, 0 bytes of new "
                               "files)")}));
}

void TestMvpublishDiff::catalogueOfAnotherEditionDoesNotCount()
{
    build(SmallSource(home("source")),
          {text("--edition"), text("standard"), text("--edition"), text("1")});
    QCOMPARE(diff().out, QByteArray("no difference\n"));
}

void TestMvpublishDiff::bytesAreThoseOfTheFiles()
{
    const SmallSource source(home("source"));
    CatalogueFiles::write(source.file(text("zoom/more.bin")), QByteArray(123, 'x'));
    QJsonObject zoom = source.manifest(text("zoom"));
    zoom.insert(text("files"),
                QJsonValue::fromVariant(
                    QStringList{text("pack.zip"), text("notes/read me.txt"), text("more.bin")}));
    source.setManifest(text("zoom"), zoom);
    build(source);
    const qint64 catalogues = QFileInfo(home("new/ResourceConfig/resource_version_v3.xml")).size()
        + QFileInfo(home("new/ResourceConfig/resource_config.xml")).size();
    const auto kilo = [](qint64 bytes) {
        return text("%1 kB").arg(static_cast<double>(bytes) / 1000.0, 0, 'f', 1);
    };
    QCOMPARE(diff().lines().constLast(),
             text("to transfer: %1 (%2 of catalogues, 123 bytes of new files)")
                 .arg(kilo(catalogues + 123), kilo(catalogues)));
}

void TestMvpublishDiff::whatIsNoTreeIsAFailure()
{
    const Outcome outcome = Mvpublish::run({text("diff"), home("old"), home("source")});
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: ") + home("source") + text(" holds no folder ResourceConfig\n"));
    QCOMPARE(outcome.status, 2);
}

MV_TEST_MAIN(TestMvpublishDiff)
#include "tst_mvpublish_diff.moc"
