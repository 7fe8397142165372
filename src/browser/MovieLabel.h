// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>

/// A label that shows a complete movie: one larger than the label is scaled down smoothly, keeping
/// its aspect ratio. A plain label would show only the middle of it.
class MovieLabel : public QLabel
{
public:
    explicit MovieLabel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
