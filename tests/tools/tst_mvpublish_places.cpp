// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>

#include <functional>

/// Tests mvpublish build into unsuitable places: nothing is changed.
class TestMvpublishPlaces : public QObject
{
    Q_OBJECT

private slots:
    void refusesThePlace_data();
    void refusesThePlace();
    void refusesATreeWithMore_data();
    void refusesATreeWithMore();
    void replacesAWholeInstallation();
};

void TestMvpublishPlaces::refusesThePlace_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("message");
    const QString source = home("source");
    const QString within = text("SOURCE and OUT must not contain each other");
    const QString noTree = text(" exists and is not a tree; it is left as it is");
    QTest::newRow("no source") << home("nowhere") << home("out")
                               << text("no such folder: ") + home("nowhere");
    QTest::newRow("in the source") << source << source + text("/out") << within;
    QTest::newRow("the source itself") << source << source << within;
    QTest::newRow("around the source") << source << TestHome::path() << within;
    CatalogueFiles::write(home("foreign/letter.txt"), "dear");
    QTest::newRow("holds something else") << source << home("foreign") << home("foreign") + noTree;
    QTest::newRow("a file") << source << home("foreign/letter.txt")
                            << home("foreign/letter.txt") + noTree;
    CatalogueFiles::write(home("hidden/.git/config"), "dear");
    QTest::newRow("holds hidden files only") << source << home("hidden") << home("hidden") + noTree;
    if (UnusualFiles::link(home("nowhere"), home("dangling")))
        QTest::newRow("link to nothing") << source << home("dangling") << home("dangling") + noTree;
    QTest::newRow("no parent") << source << home("no/where")
                               << text("nothing can be written beside ") + home("no/where")
            + text(": No such file or directory");
#ifndef Q_OS_WIN // a parent folder in which nobody can write, not even root
    QTest::newRow("unwritable parent")
        << source << text("/proc/mvtree")
        << text("nothing can be written beside /proc/mvtree: No such file or "
                "directory");
#endif
    const QString ready = text("SOURCE is where OUT is prepared");
    for (const char* name : {".shop.new", ".shop.new.old", ".shop.new/part"}) {
        const SmallSource hidden(home(name));
        QTest::newRow(name) << hidden.folder() << home("shop") << ready;
    }
}

void TestMvpublishPlaces::refusesThePlace()
{
    QFETCH(QString, source);
    QFETCH(QString, out);
    QFETCH(QString, message);
    const SmallSource small(home("source"));
    const QStringList before = CatalogueFiles::filesBelow(TestHome::path());
    const Outcome outcome = Mvpublish::run({text("build"), source, out});
    QCOMPARE(QString::fromUtf8(outcome.err), text("mvpublish: ") + message + QLatin1Char('\n'));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(CatalogueFiles::filesBelow(TestHome::path()), before);
}

void TestMvpublishPlaces::refusesATreeWithMore_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("installed");
    const auto row = [](const char* name, const char* entry, bool installed) {
        QTest::newRow(name) << text(entry) << installed;
    };
    row("tree with a user's file", "letter.txt", false);
    row("tree with a user's folder", "letters", false);
    row("tree with a hidden folder", ".git", false);
    row("tree with a kind's folder", "Themes", false);
    row("installation with a user's file", "settings.ini", true);
    row("installation with a user's folder", "Plugins", true);
    row("installation with a server's folder", "config", true);
}

void TestMvpublishPlaces::refusesATreeWithMore()
{
    QFETCH(QString, entry);
    QFETCH(bool, installed);
    const SmallSource source(home("source"));
    source.set(text("film"), "installed", true);
    const QString out = home("more/tree");
    QDir(out).removeRecursively();
    QDir().mkpath(home("more"));
    const QStringList options = installed ? QStringList{text("--installed")} : QStringList();
    QCOMPARE(Mvpublish::build(source.folder(), out, options), QString());
    const bool isFile = entry.contains(QRegularExpression(text("[a-z]\\.")));
    CatalogueFiles::write(out + QLatin1Char('/') + entry + (isFile ? QString() : text("/a.txt")),
                          "dear");
    const QStringList before = CatalogueFiles::filesBelow(home("more"));
    const Outcome outcome =
        Mvpublish::run(QStringList{text("build"), source.folder(), out} + options);
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: %1 holds %2, which is not part of %3; it is left as it is\n")
                 .arg(out, entry, installed ? text("an installation") : text("a server's tree")));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(CatalogueFiles::filesBelow(home("more")), before);
}

/// Folders and files that items share may have any name.
void TestMvpublishPlaces::replacesAWholeInstallation()
{
    const SmallSource source(home("source"));
    CatalogueFiles::write(source.file(text("shared/Own Folder/a.txt")), "a");
    CatalogueFiles::write(source.file(text("shared/b.txt")), "b");
    for (const char* item : {"look", "title", "fade", "zoom", "paper", "film"})
        source.set(text(item), "builtIn", true);
    source.set(text("paper"), "shared",
               QJsonValue::fromVariant(QStringList{text("Own Folder/a.txt"), text("b.txt")}));
    const QString out = home("installation");
    QCOMPARE(Mvpublish::build(source.folder(), out, {text("--installed")}), QString());
    const QStringList first = CatalogueFiles::filesBelow(out);
    QVERIFY(first.contains(text("Own Folder/a.txt")) && first.contains(text("b.txt")));
    QCOMPARE(Mvpublish::build(source.folder(), out, {text("--installed")}), QString());
    QCOMPARE(CatalogueFiles::filesBelow(out), first);
}

MV_TEST_MAIN(TestMvpublishPlaces)
#include "tst_mvpublish_places.moc"
