// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QStatusBar>
#include <QString>

/// A status bar that ends a message with an ellipsis where there is no room for all of it, instead
/// of cutting it off.
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
