// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "catalogue/CatalogueFixture.h"
#include "GifFile.h"
#include "records/SCfg_Item.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QStackedWidget>
#include <QToolButton>

/// Returns the descendant found by following the object names in `path` ("a/b/c").
template <class T>
T* part(const QObject& root, const char* path)
{
    const QObject* at = &root;
    const QStringList names = QString::fromLatin1(path).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& name : names) {
        at = at->findChild<QObject*>(name, Qt::FindDirectChildrenOnly);
        if (!at)
            qFatal("no %s in %s", qPrintable(name), path);
    }
    auto* const found = qobject_cast<T*>(const_cast<QObject*>(at));
    if (!found)
        qFatal("%s has another class", path);
    return found;
}

/// Returns whether a widget would be visible if all its ancestors were.
inline bool isOn(const QWidget* widget)
{
    return !widget->isHidden();
}

/// Puts a face into a window, as a list does: as a window of its own it would impose its size
/// limits.
class Stage
{
public:
    bool show(const QSize& size = {153, 116})
    {
        m_window.resize(400, 400);
        face.resize(size);
        m_window.show();
        return QTest::qWaitForWindowExposed(&m_window);
    }

private:
    QWidget m_window;

public:
    MVThemeItemSubwdgt_Preview& face = *new MVThemeItemSubwdgt_Preview(&m_window);
};

/// The parts of a preview, by name.
struct FaceParts
{
    explicit FaceParts(const MVThemeItemSubwdgt_Preview& face)
        : stack(part<QStackedWidget>(face, "stackedWidget"))
        , frmShow(part<QFrame>(face, "stackedWidget/pageShow/frmShow"))
        , frmBtns(part<QFrame>(*frmShow, "frmBtns_theme"))
        , btnCollect(part<QToolButton>(*frmBtns, "btnCollect"))
        , btnCollectNo(part<QToolButton>(*frmBtns, "btnCollect_No"))
        , btnDownload(part<QToolButton>(*frmBtns, "btnDownload"))
        , frmNetError(part<QFrame>(*frmShow, "frmNetError"))
        , lblNetErrorTitle(part<QLabel>(*frmNetError, "lblNetErrorTitle"))
        , lblNetError(part<QLabel>(*frmNetError, "lblNetError"))
        , lblCur(part<QLabel>(*frmShow, "lblCur"))
        , lblIcon(part<QLabel>(face, "stackedWidget/pageDownload/frmBg/frmPic/lblIcon"))
        , btnMore(part<QToolButton>(face, "stackedWidget/pageMore/btnMore"))
        , lblMore(part<QLabel>(face, "stackedWidget/pageMore/lblMore"))
        , lblImg(part<QLabel>(face, "frmInfo/lblImg"))
        , lblImgTemp(part<QLabel>(face, "frmInfo/lblImgTemp"))
        , lblName(part<QLabel>(face, "frmInfo/lblName"))
    {
    }

    QString page() const { return stack->currentWidget()->objectName(); }

    QStackedWidget* stack;
    QFrame* frmShow;
    QFrame* frmBtns;
    QToolButton* btnCollect;
    QToolButton* btnCollectNo;
    QToolButton* btnDownload;
    QFrame* frmNetError;
    QLabel* lblNetErrorTitle;
    QLabel* lblNetError;
    QLabel* lblCur;
    QLabel* lblIcon;
    QToolButton* btnMore;
    QLabel* lblMore;
    QLabel* lblImg;
    QLabel* lblImgTemp;
    QLabel* lblName;
};

/// A catalogue whose items' thumbnails and animations come and go. Call fresh() from init().
class FaceFixture : public CatalogueFixture
{
public:
    /// Creates a new catalogue and clears host callbacks and style sheet.
    void fresh()
    {
        CatalogueFixture::fresh();
        qRegisterMetaType<SCfg_Item*>("SCfg_Item*"); // QSignalSpy looks it up by name
        qApp->setStyleSheet(QString());
        MVThemeItemSubwdgt_Preview::setCbBtnCollect({});
        MVThemeItemSubwdgt_Preview::setCbBtnDownload({});
        MVThemeItemSubwdgt_Preview::setCbBtnMore({});
    }

    /// Returns an item that needs a thumbnail and, if a theme, an animation; both are missing.
    static SCfg_Item item(ECfgItemType kind = eCfgItem_Theme, int number = 1)
    {
        SCfg_Item result;
        result.m_eType = kind;
        result.m_qsGUID = CatalogueFiles::guid(number);
        result.m_qsName = QStringLiteral("Item %1").arg(number);
        result.m_info_Thumb.m_qsUrl = QStringLiteral("thumb%1.png").arg(number);
        result.m_info_Gif.m_qsUrl = QStringLiteral("preview%1.gif").arg(number);
        resolve(result);
        return result;
    }

    /// Returns the same item with all its files.
    SCfg_Item completeItem(ECfgItemType kind = eCfgItem_Theme, int number = 1) const
    {
        SCfg_Item result = item(kind, number);
        complete(result);
        return result;
    }

    /// Puts all files of an item into the download tree.
    void complete(SCfg_Item& item) const
    {
        CatalogueFiles::write(thumbFile(item), png(Qt::red));
        CatalogueFiles::write(gifFile(item), GifFile::plain({20, 10}, {Qt::green, Qt::blue}, 20));
        resolve(item);
    }

    void removeThumb(const SCfg_Item& item) const { QFile::remove(thumbFile(item)); }

    /// Resolves an item's files, as reading the catalogue does.
    static void resolve(SCfg_Item& item)
    {
        manager().doItem_Info_Thumb(item);
        manager().doItem_Info_Gif(item);
    }

    /// Sets or clears an item's favourite mark without telling the widgets.
    static void setFavourite(SCfg_Item& item, bool favourite)
    {
        item.m_bCollected = favourite;
        manager().setItemCollected(&item);
    }

    QString thumbFile(const SCfg_Item& item) const
    {
        return downloaded("display", folderOf(item.m_eType), item.m_info_Thumb.m_qsUrl);
    }
    QString installedThumbFile(const SCfg_Item& item) const
    {
        return installedFile("display", folderOf(item.m_eType), item.m_info_Thumb.m_qsUrl);
    }
    QString gifFile(const SCfg_Item& item) const
    {
        return downloaded("display", "Themes", item.m_info_Gif.m_qsUrl);
    }

    /// Returns a PNG image of one colour.
    static QByteArray png(const QColor& colour, const QSize& size = {40, 30})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        if (!image.save(&buffer, "PNG"))
            qFatal("cannot make an image");
        return bytes;
    }

private:
    static const char* folderOf(ECfgItemType kind)
    {
        switch (kind) {
        case eCfgItem_Filter:
            return "VideoFilters";
        case eCfgItem_BgMaterial:
            return "BgMaterial";
        default:
            return "Themes";
        }
    }
};
