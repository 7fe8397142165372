#pragma once

#include <QLabel>

/// A label that shows a movie whole: one that is larger than the label is scaled down smoothly, its
/// aspect kept. A label alone would show the middle of it.
class MovieLabel : public QLabel
{
public:
    explicit MovieLabel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
