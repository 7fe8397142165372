// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/SCfg_Item.h"
#include "records/SFileInfo.h"
#include "records/SThemes_a.h"
#include "support/TestMain.h"

#include <QDebug>
#include <QMutexLocker>

/// Tests how records appear in log output and in the failures of other tests.
class tst_recordPrinters : public QObject
{
    Q_OBJECT

private slots:
    void fileRecord();
    void fileRecordInProgress();
    void fileRecordIsPrintedUnderItsMutex();
    void item();
    void theme();
    void theStreamKeepsItsOwnFormat();
};

namespace {

template <class T>
QString printed(const T& record)
{
    QString text;
    QDebug(&text) << record;
    return text.trimmed();
}

} // namespace

void tst_recordPrinters::fileRecord()
{
    SFileInfo info;
    info.m_qsUrl = QStringLiteral("/Themes/a.zip");
    QCOMPARE(printed(info),
             QStringLiteral("SFileInfo(type 5, config, url \"/Themes/a.zip\", file \"\", 0 of 0)"));
}

void tst_recordPrinters::fileRecordInProgress()
{
    SFileInfo info;
    info.m_eType = eCfgItem_Theme;
    info.m_bThumbDir = true;
    info.m_qsUrl = QStringLiteral("a.gif");
    info.m_qsFile = QStringLiteral("/r/a.gif");
    info.m_bDownloaded = true;
    info.m_nReceived = 5;
    info.m_nTotal = Q_INT64_C(5000000000);
    QCOMPARE(printed(info),
             QStringLiteral("SFileInfo(type 3, display, url \"a.gif\", file \"/r/a.gif\", "
                            "5 of 5000000000, in progress)"));
}

void tst_recordPrinters::fileRecordIsPrintedUnderItsMutex()
{
    const SFileInfo info;
    QVERIFY(!printed(info).isEmpty());
    QVERIFY2(info.m_pMutex->tryLock(), "printing leaves the mutex locked");
    info.m_pMutex->unlock();
}

void tst_recordPrinters::item()
{
    SCfg_Item item;
    item.m_eType = eCfgItem_BgMaterial;
    item.m_qsGUID = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");
    item.m_qsName = QStringLiteral("None");
    QCOMPARE(printed(item),
             QStringLiteral("SCfg_Item(kind 4, {25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}, \"None\")"));
}

void tst_recordPrinters::theme()
{
    SThemes_a theme;
    theme.m_qsGUID = QStringLiteral("{T}");
    theme.m_qsName = QStringLiteral("Sea");
    SThemes_a::SDependArray element;
    element[eDependType_Filter].m_qsGUID = QStringLiteral("{F}");
    element[eDependType_ImageMotion].m_qsGUID = QStringLiteral("{M}");
    theme.m_vecItems.append(element);
    theme.m_aStart[eDependType_Text].m_qsGUID = QStringLiteral("{S}");
    theme.m_aEnd[eDependType_Text].m_qsGUID = QStringLiteral("{E}");
    theme.m_aMask[eDependType_Filter].m_qsGUID = QStringLiteral("{K}");
    QCOMPARE(printed(theme),
             QStringLiteral("SThemes_a({T}, \"Sea\", item [ - {F} - - {M} ], start [ {S} - - - - ]"
                            ", end [ {E} - - - - ], mask [ - {K} - - - ])"));
}

void tst_recordPrinters::theStreamKeepsItsOwnFormat()
{
    QString text;
    QDebug(&text) << SFileInfo() << SCfg_Item() << SThemes_a() << QStringLiteral("quoted") << 1;
    QVERIFY2(text.trimmed().endsWith(QStringLiteral("\"quoted\" 1")), qPrintable(text));
}

MV_TEST_MAIN(tst_recordPrinters)
#include "tst_recordPrinters.moc"
