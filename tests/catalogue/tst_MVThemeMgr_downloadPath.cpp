// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "support/UnusualFiles.h"

using Mgr = MVThemeMgr;

/// Tests which paths a download may touch.
class tst_MVThemeMgr_downloadPath : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { m_fixture.fresh(); }
    void names_data();
    void names();
    void nulIsRefused();
    void linkAsFileIsRefused();
    void linkAsFolderIsRefused();
    void danglingLinkIsRefused();
    void linkInsideTheRootIsRefusedToo();
    void folderBehindTheRootsSlashesIsLookedAt();
    void rootMayBeALink();
    void rootWithTrailingSlash();

private:
    QString below(const QString& name) const { return m_fixture.root() + name; }

    CatalogueFixture m_fixture;
};

namespace {

bool allowed(const QString& path)
{
    return CatalogueFixture::manager().isDownloadPath(path);
}

} // namespace

/// Runs before a root is set: an empty root contains no path.
void tst_MVThemeMgr_downloadPath::initTestCase()
{
    for (const char* path : {"/Themes/config/PQD/Download/Themes/a.zip", "/Themes", "/", "", "a"})
        QVERIFY2(!allowed(QString::fromLatin1(path)), path);
}

void tst_MVThemeMgr_downloadPath::names_data()
{
    QTest::addColumn<QString>("path"); // R is replaced by the root
    QTest::addColumn<bool>("expected");
    const auto row = [](const char* title, const char* path, bool expected) {
        QTest::newRow(title) << QString::fromUtf8(path) << expected;
    };
    row("file", "R/Themes/a.zip", true);
    row("directly below", "R/a", true);
    row("missing folders", "R/no/such/folder/a.zip", true);
    row("folder", "R/Themes/", true);
    row("double slash", "R//Themes//a.zip", true);
    row("blank", "R/Themes/a b.zip", true);
    row("one dot", "R/./Themes/a.zip", true);
    row("dots in a name", "R/Themes/a..b/..c", true);
    // Windows drops dots at the end of a name.
    row("dots at the end", "R/Themes/d../...", QDir::separator() == QLatin1Char('/'));
    row("percent encoded dots", "R/Themes/%2e%2e/a", true);

    row("the root", "R", false);
    row("the root with slash", "R/", false);
    row("prefix that is no parent", "R2/Themes/a.zip", false);
    row("beside", "R/../a.zip", false);
    row("empty", "", false);
    row("filesystem root", "/", false);
    row("elsewhere", "/etc/passwd", false);
    row("relative", "Themes/a.zip", false);
    row("root further on", "/xR/a", false);

    row("up", "R/Themes/../a.zip", false);
    row("up and back", "R/Themes/../Themes/a.zip", false);
    row("up at once", "R/..", false);
    row("up at the end", "R/Themes/..", false);
    row("up at the end, slash", "R/Themes/../", false);
    row("up after a double slash", "R//../a", false);
    row("up, backslashes", "R/Themes\\..\\..\\a.zip", false);
    row("up, backslash before", "R/Themes\\../a.zip", false);
    row("up, backslash behind", "R/..\\a.zip", false);
    row("up, backslash at the end", "R/Themes\\..", false);
    row("up behind a name with dots", "R/..a/../b", false);
}

void tst_MVThemeMgr_downloadPath::names()
{
    QFETCH(QString, path);
    QFETCH(bool, expected);
    path.replace(QLatin1Char('R'), m_fixture.root());
    QCOMPARE(allowed(path), expected);
}

void tst_MVThemeMgr_downloadPath::nulIsRefused()
{
    QVERIFY(!allowed(below(QStringLiteral("/Themes/a")) + QChar(QChar::Null)));
    QVERIFY(!allowed(below(QStringLiteral("/Themes/")) + QChar(QChar::Null)
                     + QStringLiteral("/a.zip")));
}

void tst_MVThemeMgr_downloadPath::linkAsFileIsRefused()
{
    const QString target = m_fixture.base() + QStringLiteral("/outside");
    CatalogueFiles::write(target, "x");
    const QString link = below(QStringLiteral("/Themes/link.zip"));
    MV_LINK(target, link);
    QVERIFY(!allowed(link));
    QVERIFY(QFile::remove(link));
    QVERIFY(allowed(link));
}

void tst_MVThemeMgr_downloadPath::linkAsFolderIsRefused()
{
    const QString target = m_fixture.base() + QStringLiteral("/outside");
    QVERIFY(QDir().mkpath(target + QStringLiteral("/deep")));
    MV_LINK(target, below(QStringLiteral("/Themes/link")));
    for (const char* name :
         {"/Themes/link", "/Themes/link/", "/Themes/link/a.zip", "/Themes/link/deep/a.zip",
          "/Themes//link//a.zip", "/Themes/link/missing/a.zip"})
        QVERIFY2(!allowed(below(QString::fromLatin1(name))), name);
    MV_LINK(target, below(QStringLiteral("/l")));
    QVERIFY2(!allowed(below(QStringLiteral("/l/a"))), "a link with a name of one letter");
}

void tst_MVThemeMgr_downloadPath::danglingLinkIsRefused()
{
    const QString link = below(QStringLiteral("/Themes/dangling"));
    MV_LINK(m_fixture.base() + QStringLiteral("/nowhere"), link);
    QVERIFY(!allowed(link));
    QVERIFY(!allowed(link + QStringLiteral("/a.zip")));
}

void tst_MVThemeMgr_downloadPath::linkInsideTheRootIsRefusedToo()
{
    MV_LINK(below(QStringLiteral("/Themes/config")), below(QStringLiteral("/inner")));
    QVERIFY(!allowed(below(QStringLiteral("/inner/a.zip"))));
}

void tst_MVThemeMgr_downloadPath::folderBehindTheRootsSlashesIsLookedAt()
{
    MV_LINK(m_fixture.base(), below(QStringLiteral("/up")));
    QVERIFY(!allowed(below(QStringLiteral("//up/a.zip"))));
    QVERIFY(!allowed(below(QStringLiteral("///up"))));
}

void tst_MVThemeMgr_downloadPath::rootMayBeALink()
{
    const QString link = m_fixture.base() + QStringLiteral("/linkedRoot");
    MV_LINK(m_fixture.root(), link);
    CatalogueFixture::manager().setResourceSaveRootPath(link);
    QVERIFY(allowed(link + QStringLiteral("/Themes/a.zip")));
    QVERIFY(!allowed(link + QStringLiteral("/Themes/../a.zip")));
    QVERIFY2(!allowed(m_fixture.root() + QStringLiteral("/Themes/a.zip")), "the name decides");

    // Folders are created through the link.
    SCfg_Item theme;
    theme.m_eType = eCfgItem_Theme;
    theme.m_qsGUID = CatalogueFiles::guid(1);
    theme.m_info_Thumb.m_qsUrl = QStringLiteral("/sub/a.png");
    QVERIFY(!CatalogueFixture::manager().doItem_Info_Thumb(theme));
    QVERIFY(QDir(m_fixture.root() + QStringLiteral("/Themes/display/PQD/Download/sub")).exists());
}

void tst_MVThemeMgr_downloadPath::rootWithTrailingSlash()
{
    const QString root = m_fixture.base() + QStringLiteral("/slash/");
    CatalogueFixture::manager().setResourceSaveRootPath(root);
    QVERIFY(allowed(root + QStringLiteral("a.zip")));
    QVERIFY(allowed(root + QStringLiteral("/Themes/a.zip")));
    QVERIFY(!allowed(root));
    QVERIFY(!allowed(root + QStringLiteral("..")));
    QVERIFY(!allowed(root + QStringLiteral("/../a")));
    QVERIFY(!allowed(m_fixture.base() + QStringLiteral("/slash2/a")));
}

MV_TEST_MAIN(tst_MVThemeMgr_downloadPath)
#include "tst_MVThemeMgr_downloadPath.moc"
