// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemUpdates.h"
#include "ProjectItems.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QPushButton;
class QTreeWidget;

/// Says which items of a project are ready, missing or unknown, and offers to fetch what is missing
/// as one download, which goes on when the dialog is closed.
class ProjectDialog : public QDialog
{
    Q_OBJECT

public:
    /// `updates` must outlive the dialog. `name` is the project's.
    ProjectDialog(ItemUpdates& updates, const QString& name, QVector<ProjectFile::Item> items,
                  QWidget* parent);

    /// Looks at the items again, after a reload of the catalogue.
    void refresh();

protected:
    void changeEvent(QEvent* event) override;

private:
    void arrange();
    void retranslate();
    void take(const ItemUpdates::Lack& lack);
    void fillTree();
    QString summary() const;
    void download();

    ItemUpdates& m_updates;
    QString m_name;
    QVector<ProjectFile::Item> m_written;
    ProjectItems m_items;
    ItemUpdates::Lack m_lack;
    bool m_isExamined = false;
    QLabel* m_summary;
    QTreeWidget* m_tree;
    QDialogButtonBox* m_buttons;
    QPushButton* m_download;
    QPushButton* m_close;
};
