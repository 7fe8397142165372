// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSplitter>

class QPushButton;

/// Shows the lists and, beside them, the details, which the user can fold away. A window too narrow
/// for both folds the details, and shows them in place of the lists on request.
class FoldingPanes : public QSplitter
{
    Q_OBJECT

public:
    explicit FoldingPanes(QWidget* parent);

    /// Adds the two panes, of which each keeps its parent until then. Call it once.
    void setPanes(QWidget* lists, QWidget* details);
    /// Returns the button that leads from the details back to the lists, to be placed above the
    /// details. It is visible only where they hide the lists.
    QPushButton* backButton() const { return m_back; }

    /// Sets whether the details are shown where there is room for both.
    void setUnfolded(bool isUnfolded);
    bool isUnfolded() const { return m_isUnfolded; }
    /// Shows the details, wherever there is room.
    void showDetails();
    /// Returns whether the window is too narrow for both.
    bool isNarrow() const { return m_isNarrow; }

    QSize minimumSizeHint() const override;

signals:
    void unfoldedChanged(bool isUnfolded);
    /// The lists have taken the place of the details again, and should have the focus.
    void wentBack();

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void arrange();
    void goBack();
    void limitWidths();

    QPushButton* m_back;
    QWidget* m_lists = nullptr;
    QWidget* m_details = nullptr;
    bool m_isUnfolded = true;
    bool m_isNarrow = false;
    bool m_isOnTop = false; // the details hide the lists, while it is narrow
};
