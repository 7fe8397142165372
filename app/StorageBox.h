// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemUpdates.h"

#include <QWidget>

#include <optional>

class QLabel;
class QPushButton;

/// Shows the state of an item's files and their size, with buttons that update and remove it.
class StorageBox : public QWidget
{
    Q_OBJECT

public:
    explicit StorageBox(QWidget* parent);

    /// Shows a report; without one, nothing is known. `isBusy`: an update works.
    void showReport(const std::optional<ItemUpdates::Report>& report, bool isBusy);

signals:
    void updateWanted();
    void removeWanted();

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();

    QLabel* m_state;
    QLabel* m_use;
    QLabel* m_noSpace;
    QPushButton* m_update;
    QPushButton* m_remove;
    std::optional<ItemUpdates::Report> m_report;
    bool m_isBusy = false;
};
