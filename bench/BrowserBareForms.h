// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QFrame>
#include <QImage>
#include <QLabel>

/// The forms of the browser's cells without their code, under the class names that
/// BrowserFloor::styleSheet() uses in its rules. Their trees come from the library's own forms, see
/// CMakeLists.txt; the properties accept what a style sheet sets and are never read.

class BareThumbFrame : public QFrame
{
    Q_OBJECT

public:
    using QFrame::QFrame;
};

class BareElidedLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;
};

class BareMovieLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;
};

class BareMVThemePreviewFrm : public QFrame
{
    Q_OBJECT

public:
    explicit BareMVThemePreviewFrm(QWidget* parent);
};

class BareMVThemeItemSubwdgt_Preview : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QImage progressImage MEMBER m_progressImage)
    Q_PROPERTY(QImage progressMask MEMBER m_progressMask)
    Q_PROPERTY(QColor progressColor MEMBER m_progressColor)
    Q_PROPERTY(int progressFontSize MEMBER m_progressFontSize)
    Q_PROPERTY(int nMarginTop_lblCur MEMBER m_marginTopCur)
    Q_PROPERTY(int nMarginTop_frmNetError MEMBER m_marginTopNetError)

public:
    /// Hides what a cell at rest hides, since a hidden widget costs less.
    explicit BareMVThemeItemSubwdgt_Preview(QWidget* parent);

private:
    QImage m_progressImage;
    QImage m_progressMask;
    QColor m_progressColor;
    int m_progressFontSize = 0;
    int m_marginTopCur = 0;
    int m_marginTopNetError = 0;
};

class BareMVThemeItemWdg : public QFrame
{
    Q_OBJECT

public:
    explicit BareMVThemeItemWdg(QWidget* parent);
};
