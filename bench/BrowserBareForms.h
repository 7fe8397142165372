#pragma once

#include <QColor>
#include <QFrame>
#include <QImage>
#include <QLabel>

/// The forms of the browser's cells without the code behind them, under the class names that
/// BrowserFloor::styleSheet() gives to the rules. Their trees come from the library's own forms,
/// see CMakeLists.txt; the properties take what a style sheet sets, and nobody asks for it.

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
    /// Hides what a cell at rest hides: a hidden widget costs less.
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
