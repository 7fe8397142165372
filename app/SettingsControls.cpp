// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SettingsControls.h"

#include "catalogue/CatalogueUse.h"
#include "download/CatalogueUpdate.h"
#include "DownloadFolder.h"
#include "FolderBar.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "Preferences.h"

#include <QAction>
#include <QGuiApplication>
#include <QMessageBox>

SettingsControls::SettingsControls(Preferences& preferences, CatalogueUpdate& check,
                                   QWidget* barParent, QWidget* window)
    : QObject(window)
    , m_preferences(preferences)
    , m_check(check)
    , m_window(window)
    , m_bar(new FolderBar(barParent))
    , m_mover(new DownloadsMover(window))
    , m_action(new QAction(this))
{
    m_action->setObjectName(QStringLiteral("preferences"));
    m_action->setShortcut(QKeySequence(QStringLiteral("Ctrl+,")));
    connect(m_action, &QAction::triggered, this, &SettingsControls::show);
    connect(m_bar, &FolderBar::settingsWanted, this, &SettingsControls::show);
    // The user may come back from making room.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            &SettingsControls::lookAtFolder);
    connectMover();
    retranslate();
    lookAtFolder();
}

void SettingsControls::connectMover()
{
    connect(m_mover, &DownloadsMover::declined, this, [this] {
        emit said(tr("The new folder is used from the next start on; what is in the old one stays "
                     "there"));
    });
    connect(m_mover, &DownloadsMover::stayed, this, [this] {
        m_bar->setUnavailable({});
        emit said(tr("The downloads stay in this folder"));
    });
    // A kill before the end must leave the folder that is complete.
    connect(m_mover, &DownloadsMover::begun, this, [this] {
        m_preferences.setDownloadFolder(m_folderBefore);
        if (!m_preferences.storeError().isEmpty())
            emit said(tr("The settings cannot be saved: %1").arg(m_preferences.storeError()));
    });
    connect(m_mover, &DownloadsMover::brought, this, &SettingsControls::useFolder);
    connect(m_mover, &DownloadsMover::failed, this, [this](const QString& reason) {
        if (reason.isEmpty())
            emit said(tr("Nothing was moved"));
        else
            QMessageBox::warning(m_window, tr("Download folder"),
                                 tr("Nothing was moved: %1").arg(reason));
    });
    connect(m_mover, &DownloadsMover::moved, this, [this](int filesLeft) {
        lookAtFolder();
        emit said(filesLeft == 0
                      ? tr("The downloads are in the new folder now")
                      : tr("The downloads are in the new folder now; %n file(s) of the old one "
                           "could not be removed",
                           nullptr, filesLeft));
    });
}

void SettingsControls::useFolder(const QString& folder)
{
    m_preferences.setDownloadFolder(folder);
    const QString error = m_preferences.storeError();
    if (error.isEmpty()) {
        m_bar->setUnavailable({});
        emit folderMoved(folder);
        return;
    }
    m_preferences.setDownloadFolder(m_folderBefore); // which is still stored
    m_mover->giveUp(error);
}

QWidget* SettingsControls::bar() const
{
    return m_bar;
}

void SettingsControls::setGiven(SettingsDialog::Given given, const QString& unavailableFolder)
{
    m_given = given;
    m_bar->setUnavailable(unavailableFolder);
}

void SettingsControls::retranslate()
{
    m_action->setText(tr("&Settings…"));
}

void SettingsControls::lookAtFolder()
{
    m_bar->refresh();
}

void SettingsControls::show()
{
    m_folderBefore = m_preferences.downloadFolder();
    auto* const dialog = new SettingsDialog(m_preferences, m_given, m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connectDialog(*dialog);
    dialog->open();
    dialog->activateWindow(); // in case no window manager does it
}

void SettingsControls::connectDialog(const SettingsDialog& dialog)
{
    connect(&dialog, &SettingsDialog::skinChosen, this, &SettingsControls::skinChosen);
    connect(&dialog, &SettingsDialog::languageChosen, this, &SettingsControls::languageChosen);
    connect(&dialog, &SettingsDialog::scaleChosen, this, &SettingsControls::scaleChosen);
    connect(&dialog, &SettingsDialog::motionChosen, this, &SettingsControls::motionChosen);
    connect(&dialog, &SettingsDialog::clickChosen, this, &SettingsControls::clickChosen);
    connect(&dialog, &SettingsDialog::serverChosen, this, &SettingsControls::useServer);
    connect(&dialog, &SettingsDialog::connectionsChosen, this, &SettingsControls::useConnections);
    // Once the dialog is closed.
    connect(
        &dialog, &SettingsDialog::folderChosen, this,
        [this](const QString& folder) {
            m_mover->offer(DownloadFolder::inUse(), folder, m_isBusy);
        },
        Qt::QueuedConnection);
}

void SettingsControls::useServer(const QString& address)
{
    const bool isFirst = ProductParam::text(ProductParam::serverRoot).isEmpty();
    if (!isFirst || m_check.isRunning() || CatalogueUse::count() > 0) {
        emit said(tr("The new server is used from the next start on"));
        return;
    }
    hostSettings().productParams.insert(ProductParam::serverRoot, address);
    emit serverInUse();
    m_check.start();
}

void SettingsControls::useConnections(int count)
{
    if (m_check.isRunning() || CatalogueUse::count() > 0)
        emit said(tr("The number of connections applies from the next start on"));
    else
        hostSettings().transfersSideBySide = count;
}
