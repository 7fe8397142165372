// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"
#include "FixedGuidList.h"

#include "catalogue/FixedGuids.h"

#include <QCryptographicHash>

#include <iterator>

/// Tests the items that every installation contains.
class tst_MVThemeMgr_fixedGuids : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture.fresh(); }
    void listIsWholeAndInOrder();
    void configOfEveryOneIsPresent_data();
    void configOfEveryOneIsPresent();
    void guidsAreComparedExactly();

private:
    bool configPresent(const QString& guid, QString* file = nullptr) const
    {
        SCfg_Item item;
        item.m_eType = eCfgItem_Theme;
        item.m_qsGUID = guid;
        item.m_info_CfgXML.m_qsUrl = QStringLiteral("/missing.xml");
        item.m_info_CfgXML.m_qsFile = QStringLiteral("/old");
        const bool present = m_fixture.manager().doItem_Info_CfgXML(item);
        if (file)
            *file = item.m_info_CfgXML.m_qsFile;
        return present;
    }

    CatalogueFixture m_fixture;
};

void tst_MVThemeMgr_fixedGuids::listIsWholeAndInOrder()
{
    const QList<QString> list = fixedGuids();
    QCOMPARE(std::size(expectedFixedGuids), std::size_t(126));
    QCOMPARE(list.size(), 126);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (int i = 0; i < list.size(); ++i) {
        QCOMPARE(list.at(i), QString::fromLatin1(expectedFixedGuids[i]));
        hash.addData((i ? "\n" : "") + list.at(i).toLatin1());
    }
    QCOMPARE(hash.result().toHex(), QByteArray("c6798fcd9ebb1f64def02e98c532ea9783038c9e"));
}

void tst_MVThemeMgr_fixedGuids::configOfEveryOneIsPresent_data()
{
    QTest::addColumn<QString>("guid");
    for (const char* guid : expectedFixedGuids)
        QTest::newRow(guid) << QString::fromLatin1(guid);
}

void tst_MVThemeMgr_fixedGuids::configOfEveryOneIsPresent()
{
    QFETCH(QString, guid);
    QString file;
    QVERIFY(configPresent(guid, &file));
    QCOMPARE(file, QString());
}

void tst_MVThemeMgr_fixedGuids::guidsAreComparedExactly()
{
    for (const char* fixed : expectedFixedGuids) {
        const QString guid = QString::fromLatin1(fixed);
        QVERIFY2(!configPresent(guid.toLower()), fixed);
        QVERIFY2(!configPresent(guid + QLatin1Char(' ')), fixed);
        QVERIFY2(!configPresent(guid.mid(1, 36)), fixed);
    }
    QVERIFY(!configPresent(CatalogueFiles::guid(1)));
}

MV_TEST_MAIN(tst_MVThemeMgr_fixedGuids)
#include "tst_MVThemeMgr_fixedGuids.moc"
