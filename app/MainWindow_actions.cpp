// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MainWindow: handling of its parts' requests.

#include "AppLanguage.h"
#include "AppLook.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/CatalogueUse.h"
#include "catalogue/FavouritesFile.h"
#include "catalogue/MVThemeMgr.h"
#include "DetailsPanel.h"
#include "download/CatalogueUpdate.h"
#include "DownloadsBar.h"
#include "FailureList.h"
#include "FavouriteBar.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "ItemUpdates.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "ResourceList.h"
#include "ResourceTabs.h"
#include "StorageControls.h"
#include "UndoAction.h"
#include "ViewMenu.h"

#include <QAction>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QUrl>

namespace {

constexpr int messageMs = 6000;
const QString favouritesFilter = QStringLiteral("JSON (*.json)");

QString textOf(const FavouritesFile& file, const QString& path)
{
    switch (file.error()) {
    case FavouritesFile::Error::None:
        break;
    case FavouritesFile::Error::CannotWrite:
        return QCoreApplication::translate("FavouritesFile", "%1 cannot be written: %2")
            .arg(path, file.reason());
    case FavouritesFile::Error::CannotRead:
        return QCoreApplication::translate("FavouritesFile", "%1 cannot be read: %2")
            .arg(path, file.reason());
    case FavouritesFile::Error::NotFavourites:
        return QCoreApplication::translate("FavouritesFile", "%1 is not a file of favorites")
            .arg(path);
    case FavouritesFile::Error::BadEntry:
        return QCoreApplication::translate("FavouritesFile",
                                           "%1 contains an entry that is not a favorite")
            .arg(path);
    }
    return {};
}

} // namespace

void MainWindow::showApplied()
{
    const ECfgItemType kind = m_tabs->currentList()->kind();
    m_details->setApplied({kind, m_tabs->appliedItem(kind)});
    m_details->showItem(kind, m_tabs->appliedItem(kind));
}

void MainWindow::applySkin(const QString& skin)
{
    m_preferences.setSkin(skin);
    AppLook::apply(skin);
    m_tabs->updateItemSizes();
    m_viewMenu->showChoices(m_preferences);
}

void MainWindow::applyLanguage(const QString& language)
{
    m_preferences.setLanguage(language);
    AppLanguage::install(language);
    m_viewMenu->showChoices(m_preferences);
}

void MainWindow::applyScale(int percent)
{
    m_preferences.setScale(percent);
    m_viewMenu->showChoices(m_preferences);
    say(tr("The new scale applies from the next start on"));
}

void MainWindow::applyMotion()
{
    const bool reduced = m_preferences.isMotionReduced();
    m_viewMenu->showChoices(m_preferences);
    MVThemeItemWdg::setPlayedByHover(!reduced);
    m_details->setMotionReduced(reduced);
}

/// The catalogue takes the pictures of "none" from the skin. Not while other threads read it.
void MainWindow::passSkinOn()
{
    if (!m_check.isRunning() && CatalogueUse::count() == 0)
        hostSettings().currentSkin = m_preferences.skin();
}

void MainWindow::toggleCheck()
{
    if (m_check.isRunning())
        m_check.cancel();
    else
        m_check.start();
}

void MainWindow::refreshCheckButton()
{
    const bool idle = !m_check.isRunning();
    const QString start = tr("Check now");
    const QString cancel = tr("Cancel check");
    const QString& text = idle ? start : cancel;
    QPushButton* const button = m_tabs->checkButton();
    button->setText(text);
    // Room for both texts, so that nothing moves when a check begins or ends.
    const QFontMetrics metrics = button->fontMetrics();
    button->setMinimumWidth(
        qMax(metrics.horizontalAdvance(start), metrics.horizontalAdvance(cancel))
        + 2 * metrics.height());
    m_checkNow->setText(text);
}

void MainWindow::refreshFavourites()
{
    // The catalogue saves them at a normal exit of the process; a crash must not lose them.
    saveFavourites();
    m_tabs->refreshFavourites();
    m_details->refresh();
}

void MainWindow::saveFavourites()
{
    QString error;
    if (!MVThemeMgr::init()->saveFavourites(&error))
        say(tr("The favorites cannot be saved: %1").arg(error));
}

void MainWindow::toggleFavourite(ECfgItemType kind, const QString& guid)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    const SCfg_Item* const item = catalogue->findItemByIDFromDisplay(kind, guid);
    if (!item)
        return;
    setFavourite({kind, guid}, !catalogue->isItemCollect(item));
    noteFavourite(kind, guid);
}

/// Does nothing if the item has left the catalogue.
void MainWindow::setFavourite(const ItemKey& item, bool isFavourite)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    SCfg_Item* const found = catalogue->findItemByIDFromDisplay(item.kind, item.guid);
    if (!found || catalogue->isItemCollect(found) == isFavourite)
        return;
    found->m_bCollected = isFavourite;
    catalogue->setItemCollected(found);
}

/// Offers to undo what the user has changed, whichever control was used.
void MainWindow::noteFavourite(ECfgItemType kind, const QString& guid)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    const SCfg_Item* const item = catalogue->findItemByIDFromDisplay(kind, guid);
    if (!item)
        return;
    const bool isFavourite = catalogue->isItemCollect(item);
    m_undo->noteFavourite({kind, guid}, !isFavourite);
    if (isFavourite)
        m_favouriteBar->hide();
    else
        m_favouriteBar->showRemoval({kind, guid});
}

void MainWindow::undoFavourite(const ItemKey& item, bool isFavourite)
{
    m_favouriteBar->hide();
    setFavourite(item, isFavourite);
}

void MainWindow::showFailure(ECfgItemType kind, const QString& guid,
                             const STransferFailure& failure)
{
    const SCfg_Item* const item = MVThemeMgr::init()->findItemByIDFromDisplay(kind, guid);
    m_failure->add({kind, guid}, item ? item->m_qsName : guid, failure);
}

void MainWindow::retry(ECfgItemType kind, const QString& guid)
{
    if (MVThemeItemWdg* cell = m_tabs->reveal(kind, guid))
        cell->activate();
}

void MainWindow::openFolder(const QString& folder)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        say(tr("No program opens the folder %1").arg(folder));
}

void MainWindow::openMore()
{
    const QUrl address(ProductParam::text(ProductParam::moreAddress));
    if (!QDesktopServices::openUrl(address))
        say(tr("No program opens the address %1").arg(address.toDisplayString()));
}

void MainWindow::exportFavourites()
{
    QFileDialog dialog(this, tr("Export favorites"), QString(), favouritesFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("json"));
    dialog.selectFile(QStringLiteral("favourites.json"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    saveFavourites();
    QString path = dialog.selectedFiles().constFirst();
    // Qt does not add it below a folder with a dot in its name.
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".json");
    FavouritesFile file;
    if (file.write(path))
        say(tr("%n favorite(s) written", nullptr, file.count()));
    else
        QMessageBox::warning(this, tr("Export favorites"), textOf(file, path));
}

void MainWindow::importFavourites()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Import favorites"), QString(), favouritesFilter);
    if (path.isEmpty())
        return;
    FavouritesFile file;
    if (!file.read(path)) {
        QMessageBox::warning(this, tr("Import favorites"), textOf(file, path));
        return;
    }
    QString text = tr("%n favorite(s) added", nullptr, file.count());
    if (file.unknown() > 0)
        text += tr(", %n of them not in the catalogue now", nullptr, file.unknown());
    say(text);
}

void MainWindow::quit()
{
    if (isQuittingAgreed())
        close();
}

/// Asks only if something would be lost.
bool MainWindow::isQuittingAgreed()
{
    const int downloads = m_downloads->count() + (m_storage->updates().isUpdating() ? 1 : 0);
    if (downloads == 0)
        return true;
    QMessageBox box(QMessageBox::Question, tr("Quit"),
                    tr("%n download(s) would be cancelled", nullptr, downloads),
                    QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    QPushButton* const leave = box.addButton(tr("Quit"), QMessageBox::AcceptRole);
    leave->setObjectName(QStringLiteral("confirmQuit"));
    QPushButton* const stay = box.addButton(tr("Keep downloading"), QMessageBox::RejectRole);
    box.setDefaultButton(stay);
    box.setEscapeButton(stay);
    box.exec();
    return box.clickedButton() == leave;
}

void MainWindow::showKeys()
{
    const QVector<QPair<QString, QString>> keys{
        {QStringLiteral("←↑→↓"), tr("move between the cells")},
        {tr("Enter"), tr("apply or download the current one")},
        {tr("Space"), tr("play or stop its preview")},
        {QStringLiteral("F"), tr("add it to the favorites or remove it")},
        {tr("Menu key"), tr("show everything that can be done with it")},
        {tr("Esc"), tr("cancel its download; clear the search")},
    };
    QString text;
    for (const auto& key : keys)
        text += QStringLiteral("%1: %2\n").arg(key.first, key.second);
    QMessageBox box(QMessageBox::NoIcon, tr("Keys"), text.trimmed(), QMessageBox::Close, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void MainWindow::say(const QString& text)
{
    statusBar()->showMessage(text, messageMs);
}
