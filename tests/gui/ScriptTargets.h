// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>

class MVThemeItemWdg;
class MainWindow;
class QWidget;

/// Finds the places on the screen to which a script's words refer.
///
///     cell NAME      the middle of an item's cell
///     heart NAME     the favourite button of a cell, while visible
///     arrow NAME     the download button of a cell, while visible
///     more           the button of "More>>"
///     tab NUMBER     a tab, from 0
///     action NAME    an entry of an open menu or of the menu bar
///     widget NAME    the middle of a widget
///     away           an empty place
class ScriptTargets
{
public:
    explicit ScriptTargets(MainWindow& window);

    /// Returns false, see errorText(), while the target does not exist, is not in view or is
    /// disabled.
    bool find(const QStringList& words, QPoint& global);
    QString errorText() const { return m_error; }

    /// Returns the cell of the current list, or null.
    MVThemeItemWdg* cell(const QString& name) const;
    /// Returns a visible widget of any window, the topmost on the screen of several, or null.
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
