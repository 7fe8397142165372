// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SettingsControls.h"

#include "catalogue/CatalogueUse.h"
#include "download/CatalogueUpdate.h"
#include "FolderBar.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "Preferences.h"

#include <QAction>
#include <QGuiApplication>

SettingsControls::SettingsControls(Preferences& preferences, CatalogueUpdate& check,
                                   QWidget* barParent, QWidget* window)
    : QObject(window)
    , m_preferences(preferences)
    , m_check(check)
    , m_window(window)
    , m_bar(new FolderBar(barParent))
    , m_action(new QAction(this))
{
    m_action->setObjectName(QStringLiteral("preferences"));
    m_action->setShortcut(QKeySequence(QStringLiteral("Ctrl+,")));
    connect(m_action, &QAction::triggered, this, &SettingsControls::show);
    connect(m_bar, &FolderBar::settingsWanted, this, &SettingsControls::show);
    // The user may come back from making room.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            &SettingsControls::lookAtFolder);
    retranslate();
    lookAtFolder();
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
    connect(&dialog, &SettingsDialog::folderChosen, this, [this] {
        emit said(tr("The new folder is used from the next start on; what is in the old one stays "
                     "there"));
    });
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
