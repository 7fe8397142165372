// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SCellState.h"

#include <QColor>
#include <QWidget>

#include <functional>

class QPainter;

/// The marks in the corner of a cell's picture: one for the state of the item's files, and one for
/// a new item. Their tooltips put them into words. Internal to the library; GUI thread only.
///
/// The style sheet sets size and colours. It asks for the state when it paints after invalidate(),
/// so that cells out of view cost nothing.
class CellMarks : public QWidget
{
    Q_OBJECT
    /// The diameter of a mark in pixels.
    Q_PROPERTY(int diameter READ diameter WRITE setDiameter)
    /// The disc and the sign of the marks for on disk and not on disk.
    Q_PROPERTY(QColor plate MEMBER m_plate)
    Q_PROPERTY(QColor sign MEMBER m_sign)
    /// Those of the marks for an update and a new item.
    Q_PROPERTY(QColor accent MEMBER m_accent)
    Q_PROPERTY(QColor onAccent MEMBER m_onAccent)
    /// Those of the mark for a failed download.
    Q_PROPERTY(QColor alarm MEMBER m_alarm)
    Q_PROPERTY(QColor onAlarm MEMBER m_onAlarm)

public:
    using StateQuery = std::function<SCellState()>;

    /// Places the marks on the face of a cell.
    CellMarks(QWidget* face, StateQuery state);

    int diameter() const { return m_diameter; }
    void setDiameter(int pixels);
    /// Queries the state again before the next painting.
    void invalidate();
    /// Returns the tooltip of the mark at a point; empty beside the marks.
    Q_INVOKABLE QString textAt(const QPoint& point);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const SCellState& state();
    bool hasFilesMark();
    QRectF place(int number) const;
    void paintFiles(QPainter& painter, const QRectF& place);

    StateQuery m_query;
    SCellState m_state;
    bool m_isStale = true;
    int m_diameter = 16;
    QColor m_plate = Qt::white;
    QColor m_sign = Qt::darkGray;
    QColor m_accent = Qt::darkBlue;
    QColor m_onAccent = Qt::white;
    QColor m_alarm = Qt::darkRed;
    QColor m_onAlarm = Qt::white;
};
