// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class CatalogueUpdate;
class QLabel;
class QProgressBar;
struct SUpdateProgress;

/// Shows in the status bar what the background check is doing, and how the last one ended.
class CheckStatus : public QWidget
{
    Q_OBJECT

public:
    /// `check` must outlive this widget.
    CheckStatus(const CatalogueUpdate& check, QWidget* parent);

    QString text() const;
    /// Keeps its distance from a message on its left; an empty one needs none.
    void makeRoomFor(const QString& message);

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void showProgress(const SUpdateProgress& progress);
    QString outcome() const;
    QString previewsProgress() const;
    QString previewsText() const;
    QString details() const;
    static QString catalogueText();

    const CatalogueUpdate& m_check;
    QLabel* m_label;
    QProgressBar* m_busy;
};
