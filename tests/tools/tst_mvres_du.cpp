// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseShop.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

/// Tests mvres du.
class TestMvresDu : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_shop.fresh(); }

    void nothingOnDisk();
    void tellsOwnAndSharedSpace();
    void sortsBySize();
    void printsJson();

private:
    int allBytes() const;

    ReleaseShop m_shop;
};

int TestMvresDu::allBytes() const
{
    int bytes = 0;
    const QStringList files = m_shop.files();
    for (const QString& name : files)
        bytes += m_shop.content(name.toUtf8().constData()).size();
    return bytes;
}

void TestMvresDu::nothingOnDisk()
{
    const Outcome outcome = m_shop.run({text("du")});
    QCOMPARE(outcome.out, QByteArray("0 items: 0 bytes\n"));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvresDu::tellsOwnAndSharedSpace()
{
    QVERIFY(m_shop.fetch({1, 2}));
    const QStringList lines = m_shop.run({text("du")}).lines();
    QCOMPARE(lines.size(), 4);
    const int own = m_shop.content("Themes/2.xml").size() + m_shop.content("Themes/2.zip").size();
    const int shared =
        m_shop.content("VideoFilters/12.xml").size() + m_shop.content("VideoFilters/12.zip").size();
    const QString theme = lines.filter(CatalogueFiles::guid(2)).constFirst().simplified();
    QCOMPARE(theme,
             CatalogueFiles::guid(2)
                 + text(" theme 2 %1 bytes %2 bytes own %3 bytes shared")
                       .arg(own + shared)
                       .arg(own)
                       .arg(shared));
    QCOMPARE(lines.constLast(), text("3 items: %1 bytes").arg(allBytes()));
}

void TestMvresDu::sortsBySize()
{
    m_shop.change("VideoFilters/13.zip", ReleaseShop::archive(13) + QByteArray(3000, 'x'));
    QVERIFY(m_shop.fetch({11, 13, 2}));
    const QStringList lines = m_shop.run({text("du")}).lines();
    QVERIFY(lines.at(0).startsWith(CatalogueFiles::guid(13)));
    QVERIFY2(lines.at(0).contains(text("  3.0 kB  ")), qPrintable(lines.at(0)));
    QVERIFY(lines.at(1).startsWith(CatalogueFiles::guid(2)));
    QVERIFY(lines.at(2).startsWith(CatalogueFiles::guid(11)));
}

void TestMvresDu::printsJson()
{
    QVERIFY(m_shop.fetch({1, 2}));
    const QJsonObject told =
        QJsonDocument::fromJson(m_shop.run({text("du"), text("--json")}).out).object();
    QCOMPARE(told[text("bytes")].toInt(), allBytes());
    const QJsonArray items = told[text("items")].toArray();
    QCOMPARE(items.size(), 3);
    const QJsonObject first = items.at(0).toObject();
    QCOMPARE(first[text("guid")].toString(), CatalogueFiles::guid(1));
    QCOMPARE(first[text("kind")].toString(), text("theme"));
    QCOMPARE(first[text("name")].toString(), text("1"));
    QCOMPARE(first[text("bytes")].toInt(),
             first[text("ownBytes")].toInt() + first[text("sharedBytes")].toInt());
    QVERIFY(first[text("sharedBytes")].toInt() > 0);
}

MV_TEST_MAIN(TestMvresDu)
#include "tst_mvres_du.moc"
