#pragma once

#include <QLabel>

/// A label for one line of plain text that may be longer than its cell: it shortens what it shows
/// with an ellipsis, never asks for more width than it gets, and tells the whole text as a tool
/// tip. text() is always the whole text.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString shownText() const;
};
