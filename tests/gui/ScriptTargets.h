#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

class MVThemeItemWdg;
class MainWindow;
class QWidget;

/// Finds the places on the screen that a script's words name.
///
///     cell NAME      the middle of an item's cell
///     heart NAME     the favourite button of a cell, while it can be seen
///     arrow NAME     the download button of a cell, while it can be seen
///     more           the button of "More>>"
///     tab NUMBER     a tab, from 0
///     action NAME    an entry of an open menu or of the menu bar
///     widget NAME    the middle of a widget
///     away           a place where nothing is
class ScriptTargets
{
public:
    explicit ScriptTargets(MainWindow& window);

    /// False while it is not there, or not in view: errorText().
    bool find(const QStringList& words, QPoint& global);
    QString errorText() const { return m_error; }

    /// The cell of the current list; null if there is none.
    MVThemeItemWdg* cell(const QString& name) const;
    /// A visible widget of any window; null if there is none.
    static QWidget* widget(const QString& name);
    /// Returns whether a cell is above (negative), in (0) or below (positive) the visible part of
    /// the list.
    int place(const QString& name) const;

private:
    bool findWidget(const QWidget* widget, const QString& what, QPoint& global);
    bool findInCell(const QString& name, const QStringList& buttons, QPoint& global);
    bool findAction(const QString& name, QPoint& global);
    bool fail(const QString& text);

    MainWindow& m_window;
    QString m_error;
};
