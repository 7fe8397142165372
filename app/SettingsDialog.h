// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"
#include "WorkQueue.h"

#include <QDialog>

class Preferences;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class ServerField;

/// The program's settings. "OK" stores what has been changed, and the signals tell it; if it
/// cannot be stored, the dialog says why and stays open.
class SettingsDialog : public QDialog
{
    Q_OBJECT

public:
    /// Marks the settings that the command line overrides; the dialog disables them.
    struct Given
    {
        bool server = false;
        bool folder = false;
    };

    /// `preferences` must outlive the dialog.
    SettingsDialog(Preferences& preferences, Given given, QWidget* parent);
    ~SettingsDialog() override;

    void accept() override;

signals:
    void skinChosen(const QString& skin);
    void languageChosen(const QString& language);
    void scaleChosen(int percent);
    void motionChosen();
    void clickChosen();
    /// A setting of the transfers, which applies when no transfer runs, or at the next start.
    void serverChosen(const QString& address);
    void connectionsChosen(int count);
    void folderChosen(const QString& folder);

private:
    void createParts();
    void fillChoices();
    void arrange();
    void addRow(QFormLayout* form, const QString& text, QWidget* field);
    void chooseFolder();
    void setFolder(const QString& folder);
    void measure();
    bool storeAll();
    bool storeServer();
    bool storeFolder();
    bool storeLook();
    bool isStored();

    Preferences& m_preferences;
    Given m_given;
    ServerField* m_server;
    QLineEdit* m_folder;
    QPushButton* m_choose;
    QLabel* m_space;
    QSpinBox* m_connections;
    QComboBox* m_click;
    QComboBox* m_motion;
    QComboBox* m_language;
    QComboBox* m_skin;
    QComboBox* m_scale;
    QLabel* m_problem;
    QDialogButtonBox* m_buttons;
    QString m_firstFolder;
    CancelToken m_measuring;
    WorkQueue m_queue; // measures folders
};
