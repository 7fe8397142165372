// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QMap>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace tst_mvpublish_replace {

namespace {

QByteArray md5(const QByteArray& content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex();
}

QMap<QString, QByteArray> contentOf(const QString& folder)
{
    QMap<QString, QByteArray> content;
    const QStringList files = CatalogueFiles::filesBelow(folder);
    for (const QString& file : files)
        content.insert(file, CatalogueFiles::read(folder + QLatin1Char('/') + file));
    return content;
}

/// Reads a tree through one handle to its folder, as a server process does.
class OpenTree
{
public:
    explicit OpenTree(const QString& folder)
        : m_folder(
            ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
    }
    ~OpenTree() { ::close(m_folder); }
    Q_DISABLE_COPY_MOVE(OpenTree)

    bool isOpen() const { return m_folder >= 0; }
    QByteArray read(const char* name) const
    {
        const int file = ::openat(m_folder, name, O_RDONLY | O_CLOEXEC);
        QByteArray content;
        std::array<char, 4096> part = {};
        for (ssize_t count = 1; file >= 0 && count > 0;) {
            count = ::read(file, part.data(), part.size());
            content.append(part.data(), static_cast<int>(std::max<ssize_t>(count, 0)));
        }
        ::close(file);
        return content;
    }

private:
    int m_folder;
};

} // namespace

/// Tests repeated builds: what changes, when, and for whom.
class TestMvpublishReplace : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void sameSourceGivesTheSameBytes();
    void filesThatStayKeepTheirDates();
    void replacedTreeHoldsNothingOld();
    void publishedFilesAreReadable();
    void publishedFoldersAreReadableWhateverTheUmask();
    void readersNeverMeetHalfATree();
    void leftoversOfAKilledRunAreCleared();
    void killedRunLeavesTheTree();
    void placeThatIsALink();

private:
    QString m_out;
};

void TestMvpublishReplace::init()
{
    m_out = home(QTest::currentTestFunction()) + text("/tree");
    QDir().mkpath(QFileInfo(m_out).path());
}

/// The result must not depend on the time zone, the place or the order in which files were created;
/// of the clock, only the release.
void TestMvpublishReplace::sameSourceGivesTheSameBytes()
{
    qputenv("SOURCE_DATE_EPOCH", "1800000000");
    const auto restore = qScopeGuard([] { qunsetenv("SOURCE_DATE_EPOCH"); });
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const auto first = contentOf(m_out);
    const QString elsewhere = home("elsewhere");
    QDir(elsewhere).removeRecursively();
    QVERIFY(QDir().mkpath(elsewhere));
    QStringList files = CatalogueFiles::filesBelow(source.folder());
    std::reverse(files.begin(), files.end());
    for (const QString& file : qAsConst(files)) {
        CatalogueFiles::write(elsewhere + QLatin1Char('/') + file,
                              CatalogueFiles::read(source.file(file)));
        QFile copy(elsewhere + QLatin1Char('/') + file);
        QVERIFY(copy.open(QIODevice::ReadWrite));
        copy.setFileTime(QDateTime::fromSecsSinceEpoch(1000000000), QFile::FileModificationTime);
    }
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("TZ"), text("Pacific/Chatham"));
    environment.insert(text("LC_ALL"), text("C"));
    process.setProcessEnvironment(environment);
    const QString other = m_out + text("2");
    process.start(Mvpublish::program(), {text("build"), elsewhere, other});
    QCOMPARE(ConsoleProgram::end(process).status, 0);
    QVERIFY(contentOf(other) == first);
}

void TestMvpublishReplace::filesThatStayKeepTheirDates()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QDateTime before = QDateTime::fromSecsSinceEpoch(1500000000);
    const QStringList files = CatalogueFiles::filesBelow(m_out);
    for (const QString& name : files) {
        QFile file(m_out + QLatin1Char('/') + name);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(before, QFile::FileModificationTime));
    }
    source.set(text("paper"), "name", text("Other paper"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QStringList changed;
    for (const QString& name : files) {
        if (QFileInfo(m_out + QLatin1Char('/') + name).lastModified() != before)
            changed.append(name);
    }
    QCOMPARE(changed,
             (QStringList{text("ResourceConfig/files.txt"), text("ResourceConfig/release.json"),
                          text("ResourceConfig/resource_display.xml"),
                          text("ResourceConfig/resource_version_v3.xml"),
                          text("config/BgMaterial/") + SmallSource::guid(text("paper"))
                              + text(".xml")}));
}

void TestMvpublishReplace::replacedTreeHoldsNothingOld()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QVERIFY(QDir(source.file(text("paper"))).removeRecursively());
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QVERIFY(CatalogueFiles::filesBelow(m_out).filter(SmallSource::guid(text("paper"))).isEmpty());
    QCOMPARE(QDir(QFileInfo(m_out).path())
                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{text("tree")});
}

void TestMvpublishReplace::publishedFilesAreReadable()
{
    const SmallSource source(home("source"));
    const QString thumbnail = source.file(text("look/look 1.png"));
    QVERIFY(QFile::setPermissions(thumbnail, QFile::ReadOwner | QFile::WriteOwner));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const QStringList files = CatalogueFiles::filesBelow(m_out);
    for (const QString& file : files) {
        const QFile::Permissions permissions = QFile::permissions(m_out + QLatin1Char('/') + file);
        QVERIFY2(permissions.testFlag(QFile::ReadOther), qPrintable(file));
    }
}

void TestMvpublishReplace::publishedFoldersAreReadableWhateverTheUmask()
{
    const SmallSource source(home("source"));
    const QString script = text("umask 077; exec \"$0\" \"$@\"");
    const Outcome outcome = ConsoleProgram::run(
        text("/bin/sh"),
        {text("-c"), script, Mvpublish::program(), text("build"), source.folder(), m_out});
    QCOMPARE(outcome.status, 0);
    const QFile::Permissions needed = QFile::ReadOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(m_out) & needed, needed);
    QDirIterator it(m_out, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext())
        QVERIFY2((QFile::permissions(it.next()) & needed) == needed, qPrintable(it.filePath()));
}

/// While trees replace each other, every reader finds a complete one.
void TestMvpublishReplace::readersNeverMeetHalfATree()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QSet<QByteArray> seen;
    for (int round = 0; round < 6; ++round) {
        source.set(text("paper"), "name", QString::number(round));
        QProcess process;
        process.start(Mvpublish::program(), {text("build"), source.folder(), m_out});
        while (process.state() != QProcess::NotRunning) {
            const OpenTree tree(m_out);
            QVERIFY(tree.isOpen());
            const QByteArray version = tree.read("ResourceConfig/resource_version_v3.xml");
            const QByteArray display = tree.read("ResourceConfig/resource_display.xml");
            // The old folder is emptied once the new one is in place.
            if (version.isEmpty() || display.isEmpty())
                QVERIFY(!OpenTree(m_out).read("ResourceConfig/resource_version_v3.xml").isEmpty());
            else
                QVERIFY(version.contains(md5(display)));
            seen.insert(version);
            process.waitForFinished(1);
        }
        QCOMPARE(process.exitCode(), 0);
    }
    QVERIFY(seen.size() > 1);
}

void TestMvpublishReplace::leftoversOfAKilledRunAreCleared()
{
    const SmallSource source(home("source"));
    CatalogueFiles::write(QFileInfo(m_out).path() + text("/.tree.new/config/half.xml"), "half");
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QVERIFY(CatalogueFiles::filesBelow(m_out).filter(text("half")).isEmpty());
    QVERIFY(!QFileInfo::exists(QFileInfo(m_out).path() + text("/.tree.new")));
}

void TestMvpublishReplace::killedRunLeavesTheTree()
{
    const SmallSource source(home("source"));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    const auto before = contentOf(m_out);
    const QString work = source.addWork();
    QProcess process;
    process.start(Mvpublish::program(), {text("build"), source.folder(), m_out});
    const QString half = QFileInfo(m_out).path() + text("/.tree.new");
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(half + text("/config")), 20000);
    ConsoleProgram::signal(process, SIGKILL);
    QCOMPARE(ConsoleProgram::end(process).status, -1);
    QVERIFY(contentOf(m_out) == before);
    QVERIFY(QFileInfo::exists(half));
    QVERIFY(QFile::remove(work));
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QVERIFY(contentOf(m_out) == before);
    QVERIFY(!QFileInfo::exists(half));
}

/// A server's configuration may name a link, which must remain one.
void TestMvpublishReplace::placeThatIsALink()
{
    const SmallSource source(home("source"));
    const QString real = m_out + text("-real");
    QVERIFY(QDir().mkpath(real));
    MV_LINK(real, m_out);
    QCOMPARE(Mvpublish::build(source.folder(), m_out), QString());
    QVERIFY(UnusualFiles::isLink(m_out));
    QVERIFY(QFileInfo::exists(real + text("/ResourceConfig/resource_config.xml")));
}

MV_TEST_MAIN(TestMvpublishReplace)

} // namespace tst_mvpublish_replace

#include "tst_mvpublish_replace.moc"
