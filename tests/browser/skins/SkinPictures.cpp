// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SkinPictures.h"

#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/NoneEntry.h"
#include "SkinFacts.h"
#include "SkinLook.h"
#include "support/TestPictures.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QTest>

namespace {

constexpr int quicklyPacked = 80; // 100 disables compression

struct Kind
{
    const char* name;
    EUIItemType type;
    QSize window;
};

// Four theme cells or six filter cells per row.
const QVector<Kind> kinds{{"themes", UIItem_Themes, {712, 546}},
                          {"filters", UIItem_Filters, {764, 356}},
                          {"backgrounds", UIItem_BgMaterial, {764, 214}}};

QVector<SCfg_Item*> itemsOf(EUIItemType type)
{
    QVector<SCfg_Item*> items;
    MVThemeMgr* const manager = MVThemeMgr::init();
    const QVector<SCfg_Item>& vector = type == UIItem_Themes ? manager->getThemes_Display()
        : type == UIItem_Filters                             ? manager->getDisplayXML().vecFilter
                                                             : manager->getBgMaterial_Display();
    for (const SCfg_Item& item : vector)
        items.append(manager->findItemByIDFromDisplay(item.m_eType, item.m_qsGUID));
    return items;
}

void setFavourite(SCfg_Item* item, bool favourite)
{
    item->m_bCollected = favourite;
    MVThemeMgr::init()->setItemCollected(item);
}

MVThemeItemSubwdgt_Preview* faceOf(const MVThemeItemWdg* cell)
{
    return cell->findChild<MVThemeItemSubwdgt_Preview*>();
}

void click(const MVThemeItemWdg* cell)
{
    QTest::mouseClick(partOf(cell, "MVThemeItemWdgBg"), Qt::LeftButton);
}

/// Arranges pictures of equal size in a grid.
QImage sheetOf(const QVector<QImage>& pictures, int columns)
{
    const QSize cell = pictures.first().size();
    QImage sheet(cell.width() * columns, cell.height() * (pictures.size() / columns),
                 pictures.first().format());
    QPainter painter(&sheet);
    for (int at = 0; at < pictures.size(); ++at)
        painter.drawImage(
            QRect(QPoint(at % columns * cell.width(), at / columns * cell.height()), cell),
            pictures.at(at));
    return sheet;
}

void skinsAndKinds(int kindCount)
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<int>("kind");
    const QStringList skins = BrowserSkin::names();
    for (const QString& skin : skins) {
        for (int kind = 0; kind < kindCount; ++kind)
            QTest::addRow("%s-%s", qPrintable(skin), kinds.at(kind).name) << skin << kind;
    }
}

} // namespace

SkinPictures::SkinPictures(const QString& scale)
    : m_scale(scale)
{
}

SkinPictures::~SkinPictures() = default;

void SkinPictures::initTestCase()
{
    m_world = std::make_unique<SampleWorld>();
    QVERIFY(QDir().mkpath(QStringLiteral(MV_SCREENSHOTS)));
    QCOMPARE(QString::number(qApp->devicePixelRatio()), m_scale);
}

void SkinPictures::cleanup()
{
    BrowserLanguage::install(QStringLiteral("en"));
    qApp->setStyleSheet({});
    m_world->restore();
    if (m_favourite)
        setFavourite(m_favourite, false);
    m_favourite = nullptr;
}

ShownStates SkinPictures::choose(EUIItemType type)
{
    ShownStates rows;
    const QVector<SCfg_Item*> items = itemsOf(type);
    for (int row = 0; row < items.size(); ++row) {
        if (items.at(row)->m_qsGUID == noneEntryGuid)
            continue;
        for (int* const whole : {&rows.applied, &rows.hovered, &rows.favourite}) {
            if (*whole >= 0)
                continue;
            *whole = row;
            break;
        }
        if (rows.favourite < 0 || rows.favourite == row || SampleWorld::isBuiltIn(items.at(row)))
            continue;
        for (int* const lost : {&rows.missing, &rows.downloading, &rows.failed}) {
            if (*lost >= 0)
                continue;
            *lost = row;
            break;
        }
    }
    return rows;
}

void SkinPictures::bringAbout(SampleList& list, const ShownStates& rows)
{
    m_world->setAnswer(SampleWorld::NotFound);
    click(list.cell(rows.failed));
    QTRY_VERIFY(partOf(list.cell(rows.failed), "frmNetError")->isVisible());
    m_world->setAnswer(SampleWorld::Stalls);
    click(list.cell(rows.downloading));
    QTRY_COMPARE(shownPercent(list.cell(rows.downloading)), SampleWorld::stalledPercent);

    click(list.cell(rows.applied));
    faceOf(list.cell(rows.missing))->doEvent_Enter();
    list.hover(list.cell(rows.hovered));
    QTRY_VERIFY(list.cell(rows.hovered)->underMouse());
}

void SkinPictures::save(const QImage& picture, const QString& what) const
{
    const QString name = QStringLiteral("%1-%2-%3x.png")
                             .arg(QString::fromLatin1(QTest::currentDataTag()), what, m_scale);
    QVERIFY(picture.save(QStringLiteral(MV_SCREENSHOTS "/") + name, "PNG", quicklyPacked));
}

void SkinPictures::everyState_data()
{
    skinsAndKinds(kinds.size());
}

void SkinPictures::everyState()
{
    QFETCH(QString, skin);
    QFETCH(int, kind);
    const EUIItemType type = kinds.at(kind).type;
    const ShownStates rows = choose(type);
    QVERIFY(rows.failed > 0);
    const QVector<SCfg_Item*> items = itemsOf(type);
    m_favourite = items.at(rows.favourite);
    setFavourite(m_favourite, true);
    for (const int lost : {rows.missing, rows.downloading, rows.failed})
        m_world->lose(items.at(lost));

    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList list(type, kinds.at(kind).window);
    bringAbout(list, rows);
    if (QTest::currentTestFailed())
        return;
    if (TestPictures::areWanted())
        save(list.window().grab().toImage(), QStringLiteral("states"));
    const SkinFacts facts(list);
    facts.cellsAreAligned();
    facts.overlaysLieInTheirCells();
    facts.namesAreLegible();
    facts.appliedCellStandsOut(rows.applied, rows.favourite);
    facts.hoveredCellStandsOut(rows.hovered, rows.favourite);
    facts.buttonsShow(rows.favourite, "btnCollect");
    facts.buttonsShow(rows.hovered, "btnCollect_No");
    facts.buttonsShow(rows.missing, "btnDownload");
    facts.buttonsShow(rows.failed, "btnDownload");
    facts.ringIsCentred(rows.downloading);
    facts.errorIsLegible(rows.failed);
    if (type == UIItem_Themes) {
        facts.animationPlays(rows.hovered);
        facts.moreIsLegible(list.count() - 1);
    }
    // Ended by the server, as cancelling takes time.
    m_world->setAnswer(SampleWorld::NotFound);
    QTRY_VERIFY(!list.cell(rows.downloading)->isDownloading());
}

void SkinPictures::textsInEveryLanguage_data()
{
    skinsAndKinds(2); // backgrounds use the same cells as filters
}

void SkinPictures::textsInEveryLanguage()
{
    QFETCH(QString, skin);
    QFETCH(int, kind);
    const EUIItemType type = kinds.at(kind).type;
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    SampleList list(type, kinds.at(kind).window);
    const QVector<EMVThemeDownLoadError> errors{eDownLoadError_Internet, eDownLoadError_Path,
                                                eDownLoadError_Element, eDownLoadError_Unknown};
    QVector<MVThemeItemWdg*> cells{list.cell(0)};
    click(cells.first());
    for (const EMVThemeDownLoadError error : errors) {
        cells.append(list.cell(cells.size()));
        faceOf(cells.last())->setDownLoadErrorText(error);
    }
    if (type == UIItem_Themes)
        cells.append(list.cell(list.count() - 1)); // "More>>"

    QVector<QImage> pictures;
    const QColor ground = list.window().grab().toImage().pixelColor(0, 0);
    const QStringList languages = BrowserLanguage::languages();
    for (const QString& language : languages) {
        QVERIFY(BrowserLanguage::install(language));
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // posted by the former

        for (MVThemeItemWdg* cell : qAsConst(cells)) {
            SkinFacts::holdsItsTexts(cell, language);
            if (TestPictures::areWanted())
                pictures.append(drawnOn(*cell, ground));
        }
    }
    if (TestPictures::areWanted())
        save(sheetOf(pictures, cells.size()), QStringLiteral("texts"));
}
