// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// Tests mvres clean.
class TestMvresClean : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void removesWhatNoCatalogueNames();
    void removesWhatUpdatesAndRemovalsHaveLeft();
    void dryRunChangesNothing();
    void withdrawnItemsAreLeftOver();
    void printsJson();
    void withoutCatalogueNothingIsRemoved();

private:
    QString leftover() const { return m_shop.file("Themes/old/old.zip"); }

    ReleaseShop m_shop;
};

void TestMvresClean::init()
{
    m_shop.fresh();
    QVERIFY(m_shop.fetch({1}));
}

void TestMvresClean::removesWhatNoCatalogueNames()
{
    const QStringList before = m_shop.mvres().downloaded();
    CatalogueFiles::write(leftover(), "old");
    const Outcome outcome = m_shop.run({text("clean")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines(),
             (QStringList{text("     3 bytes  ") + leftover(), text("1 file, 3 bytes freed")}));
    QCOMPARE(m_shop.mvres().downloaded(), before);
    QVERIFY(!QFileInfo::exists(QFileInfo(leftover()).path()));
    QCOMPARE(m_shop.run({text("clean")}).out, QByteArray("0 files, 0 bytes freed\n"));
    QCOMPARE(m_shop.run({text("verify")}).status, 0);
}

void TestMvresClean::removesWhatUpdatesAndRemovalsHaveLeft()
{
    const QString folder = m_shop.mvres().root() + text("/Themes/ResourceConfig");
    CatalogueFiles::write(folder + text("/updates/part"), "part");
    CatalogueFiles::write(folder + text("/removed/1/0"), "gone");
    const Outcome outcome = m_shop.run({text("clean")});
    QCOMPARE(outcome.lines().constLast(), text("2 files, 8 bytes freed"));
    QVERIFY(!QFileInfo::exists(folder + text("/updates")));
    QVERIFY(!QFileInfo::exists(folder + text("/removed")));
}

void TestMvresClean::dryRunChangesNothing()
{
    CatalogueFiles::write(leftover(), "old");
    const QStringList before = m_shop.mvres().downloaded();
    const Outcome outcome = m_shop.run({text("clean"), text("--dry-run")});
    QCOMPARE(
        outcome.lines(),
        (QStringList{text("     3 bytes  ") + leftover(), text("1 file, 3 bytes to be freed")}));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_shop.mvres().downloaded(), before);
}

/// What the catalogue does not name any more is left over, but not before it is accepted.
void TestMvresClean::withdrawnItemsAreLeftOver()
{
    QVERIFY(m_shop.fetch({13}));
    const QString config =
        m_shop.mvres().root() + text("/Themes/ResourceConfig/resource_config.xml");
    QByteArray catalogue = CatalogueFiles::read(config);
    catalogue.replace("/VideoFilters/13.zip", "/VideoFilters/13-new.zip");
    CatalogueFiles::write(config, catalogue);
    const Outcome outcome = m_shop.run({text("clean")});
    QCOMPARE(outcome.lines().size(), 2);
    QVERIFY(outcome.lines().constFirst().endsWith(m_shop.file("VideoFilters/13.zip")));
    QVERIFY(QFileInfo::exists(m_shop.file("VideoFilters/13.xml")));
}

void TestMvresClean::printsJson()
{
    CatalogueFiles::write(leftover(), "old");
    const QJsonObject expected{
        {text("files"), QJsonArray{QJsonObject{{text("path"), leftover()}, {text("size"), 3}}}},
        {text("bytes"), 3},
        {text("dryRun"), false}};
    QCOMPARE(QJsonDocument::fromJson(m_shop.run({text("clean"), text("--json")}).out).object(),
             expected);
}

void TestMvresClean::withoutCatalogueNothingIsRemoved()
{
    const QStringList before = m_shop.files();
    for (const char* const name : {"resource_config.xml", "resource_display.xml"}) {
        CatalogueFiles::write(m_shop.mvres().root() + text("/Themes/ResourceConfig/") + text(name),
                              "<R/>");
    }
    const Outcome outcome = m_shop.run({text("clean")});
    QVERIFY2(outcome.err.startsWith("mvres: the catalogue is empty: "), outcome.err.constData());
    QCOMPARE(outcome.out, QByteArray("0 files, 0 bytes freed\n"));
    QCOMPARE(m_shop.files(), before);
}

MV_TEST_MAIN(TestMvresClean)
#include "tst_mvres_clean.moc"
