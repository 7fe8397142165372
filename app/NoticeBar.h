// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

class QLabel;
class QProgressBar;
class QPushButton;

/// A bar below the lists: a text, one action and, if needed, progress. Hidden at first. Derived
/// classes set the texts.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    /// The parts are named after the bar: "updateBarText", "updateBarAction", "updateBarClose".
    NoticeBar(const QString& name, QWidget* parent);

protected:
    /// Sets all texts, in the present language. Called when it changes.
    virtual void retranslate() = 0;
    /// Called when the button of the action has been pressed.
    virtual void act() = 0;

    /// Sets the texts, and what screen readers say of the bar.
    void setTexts(const QString& text, const QString& action);
    /// Sets an explanation that is shown on demand.
    void setDetails(const QString& details);
    /// Shows progress; a total of 0 is not known yet.
    void showProgress(qint64 done, qint64 total);
    void hideProgress();
    /// Sets whether the user can close the bar; true by default.
    void setClosable(bool isClosable);

    void changeEvent(QEvent* event) override;

private:
    QLabel* m_text;
    QProgressBar* m_progress;
    QPushButton* m_action;
    QPushButton* m_close;
};
