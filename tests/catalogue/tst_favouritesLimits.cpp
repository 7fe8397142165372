// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "host/SystemFile.h"

#include <QJsonDocument>

using Files = CatalogueFiles;

/// Favourites at their limits: the largest file, the last damaged copy, names that are nearly those
/// of leftovers.
class tst_favouritesLimits : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void largestFile_data();
    void largestFile();
    void lastDamagedFile_data();
    void lastDamagedFile();
    void namesOfLeftovers_data();
    void namesOfLeftovers();
    void nothingIsWrittenWhereNothingHasChanged();

private:
    static MVThemeMgr& mgr() { return CatalogueFixture::manager(); }
    QString file() const { return m_fixture.collectFile("ThemeCollect"); }
    QJsonObject onDisk() const { return QJsonDocument::fromJson(Files::read(file())).object(); }
    static void mark();

    CatalogueFixture m_fixture;
};

namespace {

const QJsonObject marked{{Files::guid(1), true}};

} // namespace

void tst_favouritesLimits::mark()
{
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_qsGUID = Files::guid(1);
    item.m_bCollected = true;
    mgr().setThemesCollected(&item);
}

void tst_favouritesLimits::largestFile_data()
{
    constexpr qint64 largest = 64 * 1024 * 1024;
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("the largest") << largest << true;
    QTest::newRow("one byte more") << largest + 1 << false;
}

/// One that is read is found damaged and kept aside; another one is left alone.
void tst_favouritesLimits::largestFile()
{
    QFETCH(qint64, bytes);
    QFETCH(bool, isRead);
    QVERIFY(QFile::resize(file(), bytes));
    mark();
    QString error;
    QCOMPARE(mgr().saveFavourites(&error), isRead);
    QCOMPARE(QFileInfo(file() + QStringLiteral(".damaged-1")).size(), isRead ? bytes : 0);
    QCOMPARE(onDisk(), isRead ? marked : QJsonObject());
    QVERIFY(isRead || error.startsWith(file() + QStringLiteral(": cannot be read: ")));
    QVERIFY(isRead || QFileInfo(file()).size() == bytes);
}

void tst_favouritesLimits::lastDamagedFile_data()
{
    QTest::addColumn<int>("kept");
    QTest::newRow("the last") << 999;
    QTest::newRow("one more") << 1000;
}

void tst_favouritesLimits::lastDamagedFile()
{
    QFETCH(int, kept);
    const auto aside = [this](int number) {
        return QStringLiteral("%1.damaged-%2").arg(file()).arg(number);
    };
    for (int number = 1; number <= kept; ++number)
        Files::write(aside(number), "an earlier one");
    Files::write(file(), "damaged");
    mark();
    QString error;
    const bool hasRoom = kept < 1000;
    QCOMPARE(mgr().saveFavourites(&error), hasRoom);
    QCOMPARE(error,
             hasRoom ? QString()
                     : file() + QStringLiteral(": 1000 damaged files have been kept already"));
    QCOMPARE(Files::read(hasRoom ? aside(1000) : file()), QByteArray("damaged"));
    QVERIFY(!QFile::exists(aside(1001)));
}

void tst_favouritesLimits::namesOfLeftovers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isLeftover");
    const auto row = [](const char* name, bool isLeftover) {
        QTest::newRow(name) << QString::fromLatin1(name) << isLeftover;
    };
    row("ThemeCollect.json.abcDEF", true);
    row("ThemeCollect.json.abcDE", false);
    row("ThemeCollect.json.abcDEFg", false);
    row("ThemeCollect.json.abcDE1", false);
    row("ThemeCollect.json.1bcDEF", false);
    row("ThemeCollect.json-abcDEF", false);
    row("OtherCollect.json.abcDEF", false);
}

void tst_favouritesLimits::namesOfLeftovers()
{
    QFETCH(QString, name);
    QFETCH(bool, isLeftover);
    const QString path = QFileInfo(file()).path() + QLatin1Char('/') + name;
    Files::write(path, "x");
    QFile old(path);
    QVERIFY(old.open(QIODevice::ReadWrite));
    QVERIFY(old.setFileTime(QDateTime::currentDateTime().addSecs(-2 * 3600),
                            QFileDevice::FileModificationTime));
    old.close();
    mark();
    QVERIFY(mgr().saveFavourites(nullptr));
    QCOMPARE(QFile::exists(path), !isLeftover);
    QCOMPARE(onDisk(), marked);
}

/// The file stays the same one: replacing it would give the name to another.
void tst_favouritesLimits::nothingIsWrittenWhereNothingHasChanged()
{
    mark();
    QVERIFY(mgr().saveFavourites(nullptr));
    const QString alias = file() + QStringLiteral(".alias");
    const QByteArray name = SystemFile::encodedName(file());
    QVERIFY(SystemFile::link(name, SystemFile::encodedName(alias)));
    mark();
    QVERIFY(mgr().saveFavourites(nullptr));
    QVERIFY(SystemFile::isSame(name, SystemFile::encodedName(alias)));
}

MV_TEST_MAIN(tst_favouritesLimits)
#include "tst_favouritesLimits.moc"
