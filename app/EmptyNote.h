// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// Says in an empty list why it is empty, and offers one way out.
class EmptyNote : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyNote(QWidget* parent);

    /// Sets the reason why the list is empty and the label of the button, which is hidden if
    /// `action` is empty.
    void setTexts(const QString& why, const QString& action);

signals:
    void actionWanted();

private:
    QLabel* m_why;
    QPushButton* m_action;
};
