// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QStatusBar>
#include <QString>

/// A status bar that elides messages longer than itself.
class MessageBar : public QStatusBar
{
    Q_OBJECT

public:
    using QStatusBar::QStatusBar;

    /// Returns the message as it is shown.
    QString shownMessage() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect messageRoom() const;
};
