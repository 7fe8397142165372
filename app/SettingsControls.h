// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "DownloadsMover.h"
#include "SettingsDialog.h"

#include <QObject>
#include <QString>

#include <functional>
#include <utility>

class CatalogueUpdate;
class FolderBar;
class Preferences;
class QAction;

/// The settings as the window offers them: the dialog, the warning about the download folder, and
/// the application of what the user has changed, at once or, where the library reads a value only
/// once, at the next start.
class SettingsControls : public QObject
{
    Q_OBJECT

public:
    /// Everything must outlive this object, which belongs to `window`; the bar to `barParent`.
    SettingsControls(Preferences& preferences, CatalogueUpdate& check, QWidget* barParent,
                     QWidget* window);

    /// Sets what the command line has decided, and the chosen download folder if it cannot be used.
    void setGiven(SettingsDialog::Given given, const QString& unavailableFolder);
    /// Returns the warning to be placed below the lists.
    QWidget* bar() const;
    /// Sets what tells whether downloads or a check run, or one is about to, so that no files can
    /// be moved.
    void setBusyQuery(std::function<bool()> isBusy) { m_isBusy = std::move(isBusy); }
    /// Ends a move of the downloads; call it when folderMoved() has been followed.
    void endMove() { m_mover->finish(); }
    /// Returns the action that opens the dialog.
    QAction* action() const { return m_action; }
    void retranslate();
    /// Looks at the download folder again.
    void lookAtFolder();
    /// Opens the dialog.
    void show();
    /// Uses a server from now on, if none is in use yet, and checks it; otherwise from the next
    /// start on.
    void useServer(const QString& address);

signals:
    void skinChosen(const QString& skin);
    void languageChosen(const QString& language);
    void scaleChosen(int percent);
    void motionChosen();
    void clickChosen();
    /// All downloads are in this folder, too: it is to be used from now on, then endMove() called.
    void folderMoved(const QString& folder);
    /// A server is in use for the first time.
    void serverInUse();
    /// A message for the status bar.
    void said(const QString& text);

private:
    void connectDialog(const SettingsDialog& dialog);
    void useConnections(int count);
    void connectMover();
    void useFolder(const QString& folder);

    Preferences& m_preferences;
    CatalogueUpdate& m_check;
    QWidget* m_window;
    FolderBar* m_bar;
    DownloadsMover* m_mover;
    std::function<bool()> m_isBusy = [] { return false; };
    QString m_folderBefore; // the user's choice before the dialog was opened
    QAction* m_action;
    SettingsDialog::Given m_given;
};
