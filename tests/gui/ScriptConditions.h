// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "gui/ScriptTargets.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>

class CatalogueUpdate;
class MainWindow;

/// The conditions that a script can wait for.
///
///     phase idle|waiting|catalogue|previews   of the background check
///     quiet              no check is running, and its new files have been loaded
///     status TEXT        the check's line in the status bar contains TEXT
///     message TEXT       the status bar's message contains TEXT
///     reloads N          the catalogue was reloaded exactly N times
///     shown N            the current list has N rows
///     scrolled yes|no    whether the current list is scrolled away from its top
///     current NAME       the cell has the keyboard focus
///     applied NAME       the cell is marked, and the details show the item
///     downloading NAME   failed NAME   ready NAME   lacking NAME   favourite NAME   plain NAME
///     playing NAME       still NAME   seen NAME   unseen NAME: whether in view
///     outdated NAME      uptodate NAME: whether its cell offers an update
///     preview playing|still           of the applied item
///     downloads none     no cell of any list is downloading
///     text WIDGET TEXT   the widget's text contains TEXT
///     row TREE TEXT      norow TREE TEXT     whether a row of the tree widget contains TEXT
///     spoken WIDGET TEXT the text for screen readers contains TEXT
///     focus WIDGET       gone WIDGET
///     enabled WIDGET     disabled WIDGET     a missing widget is disabled
///     opened TEXT        an opened address contains TEXT
///     clipboard TEXT
class ScriptConditions : public QObject
{
    Q_OBJECT

public:
    ScriptConditions(MainWindow& window, const CatalogueUpdate& check);
    ~ScriptConditions() override;

    /// Intercepts addresses that would be opened in desktop programs, for "opened". Without a
    /// running script they are opened normally.
    void takeAddresses();
    /// Returns whether the condition holds; if not, errorText() describes the actual state.
    bool holds(const QStringList& words);
    QString errorText() const { return m_error; }

public slots:
    void open(const QUrl& address);

private:
    bool holdsForWindow(const QString& what, const QString& value);
    bool holdsForCell(const QString& what, const QString& name);
    bool holdsForWidget(const QString& what, const QString& name, const QString& text);
    bool contains(const QString& actual, const QString& wanted);
    bool equals(const QString& actual, const QString& wanted);

    MainWindow& m_window;
    const CatalogueUpdate& m_check;
    ScriptTargets m_targets;
    QStringList m_opened;
    QString m_error;
};
