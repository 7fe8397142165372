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
///     phase idle|catalogue|previews   of the background check
///     quiet              no check goes on, and what one brought has been read
///     status TEXT        the check's line in the status bar contains it
///     message TEXT       the status bar's message contains it
///     reloads N          the catalogue was read again so often, neither more nor less
///     shown N            rows in the current list
///     scrolled yes|no    the current list is not at its top, or is
///     current NAME       the keyboard's cell
///     applied NAME       the cell is marked, and the details tell of it
///     downloading NAME   failed NAME   ready NAME   lacking NAME   favourite NAME   plain NAME
///     playing NAME       still NAME   seen NAME   unseen NAME: in view, or not
///     preview playing|still           of what is applied
///     downloads none     no cell of any list downloads
///     text WIDGET TEXT   the widget's text contains it
///     spoken WIDGET TEXT what a screen reader is told contains it
///     focus WIDGET       gone WIDGET
///     opened TEXT        an address that was opened contains it
///     clipboard TEXT
class ScriptConditions : public QObject
{
    Q_OBJECT

public:
    ScriptConditions(MainWindow& window, const CatalogueUpdate& check);
    ~ScriptConditions() override;

    /// Takes the place of the desktop's programs, for "opened". While no script runs, addresses are
    /// the user's.
    void takeAddresses();
    /// False while it does not hold: errorText() says what there is instead.
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
