// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemePreviewFrm.h"
#include "FaceFixture.h"
#include "host/widgets/ThumbFrame.h"

namespace {

/// A visible preview frame that gives access to its picture.
class Picture
{
public:
    explicit Picture(const SCfg_Item* item = nullptr)
    {
        frame.resize(40, 30);
        if (item)
            frame.setItemData(item);
    }

    bool show()
    {
        frame.show();
        return QTest::qWaitForWindowExposed(&frame);
    }
    ThumbFrame* thumb() { return part<ThumbFrame>(frame, "stackedWidget/pageNormal/frmPic"); }
    QColor colour() { return thumb()->grab().toImage().pixelColor(20, 15); }

    MVThemePreviewFrm frame{nullptr};
};

} // namespace

/// Tests a cell's thumbnail and its updates.
class tst_MVThemePreviewFrm_thumbnail : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }

    void showsTheItemsThumbnail_data();
    void showsTheItemsThumbnail();
    void anotherItemBringsAnotherThumbnail();
    void takesThePathThatTheItemHolds();
    void adjustingReadsTheFileAnewAtOnce();
    void adjustingAsksNothingOfTheCatalogue();
    void refreshingFindsADownloadedThumbnail();
    void refreshingShowsAFileThatHasAppeared();
    void refreshingShowsAFileThatWasReplaced();
    void refreshingKeepsTheThumbnailPage();
    void withoutAnItemNothingHappens();
    void laysItselfOutAsAnyWidget();

private:
    FaceFixture m_world;
};

void tst_MVThemePreviewFrm_thumbnail::showsTheItemsThumbnail_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("theme") << int(eCfgItem_Theme);
    QTest::newRow("filter") << int(eCfgItem_Filter);
    QTest::newRow("background material") << int(eCfgItem_BgMaterial);
}

void tst_MVThemePreviewFrm_thumbnail::showsTheItemsThumbnail()
{
    QFETCH(int, kind);
    const SCfg_Item item = m_world.completeItem(static_cast<ECfgItemType>(kind));
    Picture picture(&item);
    QCOMPARE(picture.thumb()->imagePath(), m_world.thumbFile(item));
    QCOMPARE(picture.colour(), QColor(Qt::red));
}

void tst_MVThemePreviewFrm_thumbnail::anotherItemBringsAnotherThumbnail()
{
    const SCfg_Item first = m_world.completeItem(eCfgItem_Theme, 1);
    const SCfg_Item second = m_world.completeItem(eCfgItem_Theme, 2);
    CatalogueFiles::write(m_world.thumbFile(second), FaceFixture::png(Qt::blue));
    Picture picture(&first);
    QCOMPARE(picture.colour(), QColor(Qt::red));
    picture.frame.setItemData(&second);
    QCOMPARE(picture.thumb()->imagePath(), m_world.thumbFile(second));
    QCOMPARE(picture.colour(), QColor(Qt::blue));
}

void tst_MVThemePreviewFrm_thumbnail::takesThePathThatTheItemHolds()
{
    SCfg_Item item = m_world.completeItem();
    item.m_info_Thumb.m_qsFile = m_world.base() + QStringLiteral("/elsewhere.png");
    Picture picture(&item);
    QCOMPARE(picture.thumb()->imagePath(), item.m_info_Thumb.m_qsFile);
}

void tst_MVThemePreviewFrm_thumbnail::adjustingReadsTheFileAnewAtOnce()
{
    const SCfg_Item item = m_world.completeItem();
    Picture picture(&item);
    QVERIFY(picture.show());
    QTRY_VERIFY(!picture.thumb()->isEmpty());
    CatalogueFiles::write(m_world.thumbFile(item), FaceFixture::png(Qt::blue));
    QCOMPARE(picture.colour(), QColor(Qt::red));

    picture.frame.adjustItem();
    QVERIFY(!picture.thumb()->isEmpty());
    QFile::remove(m_world.thumbFile(item));
    QCOMPARE(picture.colour(), QColor(Qt::blue));
}

void tst_MVThemePreviewFrm_thumbnail::adjustingAsksNothingOfTheCatalogue()
{
    SCfg_Item item = m_world.completeItem();
    Picture picture(&item);
    const QString shown = picture.thumb()->imagePath();
    item.m_info_Thumb.m_qsFile = m_world.base() + QStringLiteral("/elsewhere.png");
    picture.frame.adjustItem();
    QCOMPARE(picture.thumb()->imagePath(), shown);
    QCOMPARE(item.m_info_Thumb.m_qsFile, m_world.base() + QStringLiteral("/elsewhere.png"));
}

void tst_MVThemePreviewFrm_thumbnail::refreshingFindsADownloadedThumbnail()
{
    SCfg_Item item = FaceFixture::item();
    CatalogueFiles::write(m_world.installedThumbFile(item), FaceFixture::png(Qt::red));
    FaceFixture::resolve(item);
    Picture picture(&item);
    QCOMPARE(picture.thumb()->imagePath(), m_world.installedThumbFile(item));
    QVERIFY(picture.show());
    QTRY_VERIFY(!picture.thumb()->isEmpty());

    CatalogueFiles::write(m_world.thumbFile(item), FaceFixture::png(Qt::blue));
    picture.frame.resetItemData();
    QCOMPARE(item.m_info_Thumb.m_qsFile, m_world.thumbFile(item));
    QCOMPARE(picture.thumb()->imagePath(), m_world.thumbFile(item));
    QVERIFY(!picture.thumb()->isEmpty());
    QCOMPARE(picture.colour(), QColor(Qt::blue));
}

void tst_MVThemePreviewFrm_thumbnail::refreshingShowsAFileThatHasAppeared()
{
    const SCfg_Item item = FaceFixture::item();
    Picture picture(&item);
    QVERIFY(picture.show());
    QVERIFY(picture.colour() != QColor(Qt::blue));
    QVERIFY(picture.thumb()->isEmpty());

    CatalogueFiles::write(m_world.thumbFile(item), FaceFixture::png(Qt::blue));
    picture.frame.resetItemData();
    QVERIFY(!picture.thumb()->isEmpty());
    QCOMPARE(picture.colour(), QColor(Qt::blue));
}

void tst_MVThemePreviewFrm_thumbnail::refreshingShowsAFileThatWasReplaced()
{
    const SCfg_Item item = m_world.completeItem();
    Picture picture(&item);
    QVERIFY(picture.show());
    QCOMPARE(picture.colour(), QColor(Qt::red));
    CatalogueFiles::write(m_world.thumbFile(item), FaceFixture::png(Qt::blue));
    picture.frame.resetItemData();
    QCOMPARE(picture.colour(), QColor(Qt::blue));
}

void tst_MVThemePreviewFrm_thumbnail::refreshingKeepsTheThumbnailPage()
{
    const SCfg_Item item = m_world.completeItem();
    Picture picture(&item);
    picture.frame.resetItemData();
    picture.frame.adjustItem();
    QCOMPARE(part<QStackedWidget>(picture.frame, "stackedWidget")->currentIndex(), 0);
}

void tst_MVThemePreviewFrm_thumbnail::withoutAnItemNothingHappens()
{
    Picture picture;
    picture.frame.adjustItem();
    picture.frame.resetItemData();
    picture.frame.setItemData(nullptr);
    QCOMPARE(picture.thumb()->imagePath(), QString());
}

void tst_MVThemePreviewFrm_thumbnail::laysItselfOutAsAnyWidget()
{
    Picture picture;
    picture.frame.setFixedHeight(50);
    QVERIFY(picture.show());
    QCOMPARE(part<QWidget>(picture.frame, "stackedWidget")->height(), 50);
}

MV_WIDGET_TEST_MAIN(tst_MVThemePreviewFrm_thumbnail)
#include "tst_MVThemePreviewFrm_thumbnail.moc"
