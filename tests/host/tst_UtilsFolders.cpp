// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/Utils.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#ifndef Q_OS_WIN
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

enum Verdict { refused, removed, notPossible };

/// Calls rmDir in a child process whose root is `root`, so that nothing else can be lost. The file
/// "marker" in it proves that the root has changed.
Verdict removeBelow(const QString& root, const QString& path)
{
#ifdef Q_OS_WIN
    Q_UNUSED(root)
    Q_UNUSED(path)
    return notPossible;
#else
    const QByteArray rootName = QFile::encodeName(root);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::chroot(rootName.constData()) != 0 || ::chdir("/") != 0
            || ::access("/marker", F_OK) != 0)
            ::_exit(notPossible);
        ::_exit(Utils::rmDir(path, true) ? removed : refused);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status))
        qFatal("the child process failed");
    return Verdict(WEXITSTATUS(status));
#endif
}

} // namespace

class tst_UtilsFolders : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void copiesATree();
    void copyKeepsWhatElseIsInTheTarget();
    void copyReplacesOnlyOnDemand();
    void copyLeavesLinksOut();
    void copyFollowsTheSourceItself();
    void copyOfAnEmptyFolderMakesTheFolder();
    void copyNeedsAFolder();
    void copyGoesOnAfterAFailure();
    void copyGoesOnAfterAFailureInside();
    void copyIntoItselfIsRefused_data();
    void copyIntoItselfIsRefused();
    void copyBesideItselfIsAllowed();

    void removesATree();
    void removesAnEmptyFolder();
    void removesAFolderOnlyIfEmpty();
    void removingNothingSucceeds();
    void removesNoFile();
    void removesALinkNotItsTarget_data();
    void removesALinkNotItsTarget();
    void removesLinksInsideNotTheirTargets();
    void removesNothingWithoutAPath();
    void refusesTheRoot_data();
    void refusesTheRoot();

private:
    QString path(const char* name) const { return m_folder + QLatin1String(name); }
    void write(const char* name, const QByteArray& content) const
    {
        CatalogueFiles::write(path(name), content);
    }
    QByteArray read(const char* name) const { return CatalogueFiles::read(path(name)); }
    QStringList files(const char* folder) const { return CatalogueFiles::filesBelow(path(folder)); }

    QString m_folder; // a new one for every test, with a trailing slash
    int m_count = 0;
};

void tst_UtilsFolders::init()
{
    m_folder = TestHome::path() + QStringLiteral("/%1/").arg(++m_count);
    QVERIFY(QDir().mkpath(m_folder));
}

void tst_UtilsFolders::copiesATree()
{
    write("from/a", "1");
    write("from/sub/b", "2");
    write("from/sub/deep/c", QByteArray(300 * 1024, 'c'));
    write("from/.hidden", "3");
    write("from/.hiddenFolder/d", "4");
    QVERIFY(QDir().mkpath(path("from/empty")));
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("new/to"), false));
    QCOMPARE(files("new/to"), files("from"));
    QCOMPARE(files("from").size(), 5);
    QCOMPARE(read("new/to/a"), QByteArray("1"));
    QCOMPARE(read("new/to/sub/b"), QByteArray("2"));
    QCOMPARE(read("new/to/sub/deep/c"), QByteArray(300 * 1024, 'c'));
    QCOMPARE(read("new/to/.hidden"), QByteArray("3"));
    QCOMPARE(read("new/to/.hiddenFolder/d"), QByteArray("4"));
    QVERIFY(QFileInfo(path("new/to/empty")).isDir());
}

void tst_UtilsFolders::copyKeepsWhatElseIsInTheTarget()
{
    write("from/a", "1");
    write("to/b", "2");
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("to"), true));
    QCOMPARE(files("to"), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(read("to/b"), QByteArray("2"));
}

void tst_UtilsFolders::copyReplacesOnlyOnDemand()
{
    write("from/a", "new");
    write("from/sub/b", "new");
    write("from/sub/c", "new");
    write("to/a", "old");
    write("to/sub/b", "old");
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("to"), false));
    QCOMPARE(read("to/a"), QByteArray("old"));
    QCOMPARE(read("to/sub/b"), QByteArray("old"));
    QCOMPARE(read("to/sub/c"), QByteArray("new"));
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("to"), true));
    QCOMPARE(read("to/a"), QByteArray("new"));
    QCOMPARE(read("to/sub/b"), QByteArray("new"));
}

void tst_UtilsFolders::copyLeavesLinksOut()
{
    write("from/a", "1");
    write("elsewhere/b", "2");
    MV_LINK(path("elsewhere"), path("from/folderLink"));
    if (UnusualFiles::hasFileLinks) {
        MV_LINK(path("elsewhere/b"), path("from/fileLink"));
        MV_LINK(path("none"), path("from/brokenLink"));
    }
    MV_LINK(path("from"), path("from/loop"));
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("to"), true));
    QCOMPARE(QDir(path("to"))
                 .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("a")});
}

void tst_UtilsFolders::copyFollowsTheSourceItself()
{
    write("real/a", "1");
    MV_LINK(path("real"), path("from"));
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("to"), true));
    QCOMPARE(files("to"), QStringList{QStringLiteral("a")});
}

void tst_UtilsFolders::copyOfAnEmptyFolderMakesTheFolder()
{
    QVERIFY(QDir().mkpath(path("from")));
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("to"), true));
    QVERIFY(QFileInfo(path("to")).isDir());
}

void tst_UtilsFolders::copyNeedsAFolder()
{
    write("file", "1");
    write("from/a", "1");
    QVERIFY(!Utils::copyDirectoryFiles(path("none"), path("to"), true));
    QVERIFY(!Utils::copyDirectoryFiles(path("file"), path("to"), true));
    QVERIFY(!Utils::copyDirectoryFiles(QString(), path("to"), true));
    QVERIFY(!QFileInfo::exists(path("to")));
    QVERIFY(!Utils::copyDirectoryFiles(path("from"), path("file"), true));
    QVERIFY(!Utils::copyDirectoryFiles(path("from"), path("file/to"), true));
    QVERIFY(!Utils::copyDirectoryFiles(path("from"), QString(), true));
    QCOMPARE(read("file"), QByteArray("1"));
}

void tst_UtilsFolders::copyGoesOnAfterAFailure()
{
    for (const char* name : {"from/a", "from/b", "from/c"})
        write(name, "new");
    QVERIFY(QDir().mkpath(path("to/b"))); // a folder where a file should go
    QVERIFY(!Utils::copyDirectoryFiles(path("from"), path("to"), true));
    QCOMPARE(files("to"), (QStringList{QStringLiteral("a"), QStringLiteral("c")}));
    QVERIFY(QFileInfo(path("to/b")).isDir());
}

void tst_UtilsFolders::copyGoesOnAfterAFailureInside()
{
    for (const char* name : {"from/a/1", "from/b/2", "from/c/3", "from/d"})
        write(name, "new");
    write("to/b", "old"); // a file where a folder should go
    QVERIFY(!Utils::copyDirectoryFiles(path("from"), path("to"), true));
    QCOMPARE(files("to"),
             (QStringList{QStringLiteral("a/1"), QStringLiteral("b"), QStringLiteral("c/3"),
                          QStringLiteral("d")}));
    QCOMPARE(read("to/b"), QByteArray("old"));
}

void tst_UtilsFolders::copyIntoItselfIsRefused_data()
{
    QTest::addColumn<QString>("to");
    QTest::newRow("the same") << QStringLiteral("from");
    QTest::newRow("the same, written otherwise") << QStringLiteral("from/../from/./");
    QTest::newRow("inside") << QStringLiteral("from/to");
    QTest::newRow("deep inside") << QStringLiteral("from/sub/x/y/z");
    QTest::newRow("through a link") << QStringLiteral("link/to");
    QTest::newRow("through a link to a folder in it") << QStringLiteral("subLink/to");
}

void tst_UtilsFolders::copyIntoItselfIsRefused()
{
    QFETCH(QString, to);
    write("from/a", "1");
    write("from/sub/b", "2");
    MV_LINK(path("from"), path("link"));
    MV_LINK(path("from/sub"), path("subLink"));
    QVERIFY(!Utils::copyDirectoryFiles(path("from"), m_folder + to, true));
    QCOMPARE(files("from"), (QStringList{QStringLiteral("a"), QStringLiteral("sub/b")}));
    QCOMPARE(QDir(path("from")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("sub")});
    QVERIFY(QDir(path("from/sub")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
}

void tst_UtilsFolders::copyBesideItselfIsAllowed()
{
    write("from/a", "1");
    QVERIFY(Utils::copyDirectoryFiles(path("from"), path("from2"), true));
    QCOMPARE(read("from2/a"), QByteArray("1"));
    // The source may be inside the target.
    QVERIFY(Utils::copyDirectoryFiles(path("from"), m_folder, true));
    QCOMPARE(read("a"), QByteArray("1"));
}

void tst_UtilsFolders::removesATree()
{
    write("tree/a", "1");
    write("tree/.hidden", "1");
    write("tree/sub/deep/b", "1");
    write("beside", "kept");
    QVERIFY(Utils::rmDir(path("tree"), true));
    QVERIFY(!QFileInfo::exists(path("tree")));
    QCOMPARE(read("beside"), QByteArray("kept"));
}

void tst_UtilsFolders::removesAnEmptyFolder()
{
    for (const bool recursive : {false, true}) {
        QVERIFY(QDir().mkpath(path("empty")));
        QVERIFY(Utils::rmDir(path("empty/"), recursive));
        QVERIFY(!QFileInfo::exists(path("empty")));
    }
}

void tst_UtilsFolders::removesAFolderOnlyIfEmpty()
{
    write("file/a", "1");
    write("hidden/.a", "1");
    QVERIFY(QDir().mkpath(path("folder/a")));
    for (const char* name : {"file", "hidden", "folder"}) {
        QVERIFY(!Utils::rmDir(path(name), false));
        QVERIFY(QFileInfo(path(name)).isDir());
    }
    QCOMPARE(files(""), (QStringList{QStringLiteral("file/a"), QStringLiteral("hidden/.a")}));
    QVERIFY(QFileInfo(path("folder/a")).isDir());
}

void tst_UtilsFolders::removingNothingSucceeds()
{
    for (const bool recursive : {false, true}) {
        QVERIFY(Utils::rmDir(path("none"), recursive));
        QVERIFY(Utils::rmDir(path("none/none/"), recursive));
    }
}

void tst_UtilsFolders::removesNoFile()
{
    write("file", "kept");
    for (const bool recursive : {false, true})
        QVERIFY(!Utils::rmDir(path("file"), recursive));
    QCOMPARE(read("file"), QByteArray("kept"));
}

void tst_UtilsFolders::removesALinkNotItsTarget_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("recursive");
    for (const bool recursive : {false, true}) {
        const char* kind = recursive ? "recursive" : "not recursive";
        QTest::addRow("to a folder, %s", kind) << QStringLiteral("folderLink") << recursive;
        QTest::addRow("with a slash, %s", kind) << QStringLiteral("folderLink/") << recursive;
        QTest::addRow("with slashes, %s", kind) << QStringLiteral("folderLink//") << recursive;
        QTest::addRow("with a dot, %s", kind) << QStringLiteral("folderLink/.") << recursive;
        if (!UnusualFiles::hasFileLinks)
            continue;
        QTest::addRow("to a file, %s", kind) << QStringLiteral("fileLink") << recursive;
        QTest::addRow("to nothing, %s", kind) << QStringLiteral("brokenLink") << recursive;
    }
}

void tst_UtilsFolders::removesALinkNotItsTarget()
{
    QFETCH(QString, link);
    QFETCH(bool, recursive);
    write("real/a", "kept");
    MV_LINK(path("real"), path("folderLink"));
    if (UnusualFiles::hasFileLinks) {
        MV_LINK(path("real/a"), path("fileLink"));
        MV_LINK(path("none"), path("brokenLink"));
    }
    const bool isRemoved = Utils::rmDir(m_folder + link, recursive);
    QCOMPARE(read("real/a"), QByteArray("kept"));
    if (!UnusualFiles::canRemoveLinks())
        QSKIP("This system removes no links to folders.");
    QVERIFY(isRemoved);
    QVERIFY(!UnusualFiles::isLink(QDir::cleanPath(m_folder + link)));
}

void tst_UtilsFolders::removesLinksInsideNotTheirTargets()
{
    write("real/a", "kept");
    write("tree/b", "1");
    MV_LINK(path("real"), path("tree/folderLink"));
    if (UnusualFiles::hasFileLinks) {
        MV_LINK(path("real/a"), path("tree/fileLink"));
        MV_LINK(path("none"), path("tree/brokenLink"));
    }
    const bool isRemoved = Utils::rmDir(path("tree"), true);
    QCOMPARE(read("real/a"), QByteArray("kept"));
    if (!UnusualFiles::canRemoveLinks())
        QSKIP("This system removes no links to folders.");
    QVERIFY(isRemoved);
    QVERIFY(!QFileInfo::exists(path("tree")));
}

void tst_UtilsFolders::removesNothingWithoutAPath()
{
    // The current folder must not replace the missing name.
    write("a", "kept");
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder));
    const bool recursive = Utils::rmDir(QString(), true);
    const bool notRecursive = Utils::rmDir(QLatin1String(""), false);
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(!recursive);
    QVERIFY(!notRecursive);
    QCOMPARE(read("a"), QByteArray("kept"));
}

void tst_UtilsFolders::refusesTheRoot_data()
{
    QTest::addColumn<QString>("root");
    for (const char* root : {"/", "//", "/.", "/..", "/folder/..", "/folder/../../", ".", ".."})
        QTest::newRow(root) << QString::fromLatin1(root);
}

void tst_UtilsFolders::refusesTheRoot()
{
    QFETCH(QString, root);
    write("marker", "kept");
    QVERIFY(QDir().mkpath(path("folder")));
    const Verdict verdict = removeBelow(m_folder, root);
    if (verdict == notPossible)
        QSKIP("this user may not change the root of a process");
    QCOMPARE(verdict, refused);
    QCOMPARE(files(""), QStringList{QStringLiteral("marker")});
    QVERIFY(QFileInfo(path("folder")).isDir());
}

MV_TEST_MAIN(tst_UtilsFolders)
#include "tst_UtilsFolders.moc"
