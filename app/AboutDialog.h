// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

/// The version, the licence and the folders of the program, and a report for its developers that
/// can be copied.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent);

    /// Returns what a report of a fault should contain, in English: versions, screen, folders,
    /// settings. No names of items, no credentials.
    static QString report();

private:
    static QString foldersText();
};
