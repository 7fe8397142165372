// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLayout>
#include <QVector>

/// Places widgets side by side, and in further rows where the width does not suffice, in reading
/// direction. A widget that expands horizontally takes what its row leaves.
class FlowLayout : public QLayout
{
public:
    explicit FlowLayout(QWidget* parent);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return m_items.size(); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    using Row = QVector<QLayoutItem*>;
    QVector<Row> rowsFor(int width) const;
    void placeRow(const Row& row, const QRect& place) const;
    int gap() const;
    int extraWidth(const Row& row, int width) const;
    int heightOf(const Row& row, int width) const;

    QVector<QLayoutItem*> m_items; // owned
};
