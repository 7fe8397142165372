// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "gui/RealInput.h"
#include "gui/ScriptConditions.h"
#include "gui/ScriptStep.h"
#include "gui/ScriptTargets.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QTimer>
#include <QVector>

#include <functional>

class CatalogueUpdate;
class MainWindow;

/// Runs a script's steps on the window, with the mouse and the keyboard of the X display, prints
/// each step, and closes the window after the last step or the first failure. A step waits up to 30
/// seconds until it can be performed; "reveal" as long as the list scrolls, and 30 seconds more.
///
///     hover TARGET, click TARGET     see ScriptTargets
///     reveal NAME                    turns the wheel over the list until the cell is visible
///     wheel STEPS                    over the list; negative values turn it down
///     press KEYS, type TEXT
///     wait CONDITION                 see ScriptConditions
///     screenshot NAME                of the window, once its thumbnails are decoded, into the
///     folder
///                                    of --screenshot; without one the step does nothing
///     pace MILLISECONDS              of downloads, see DownloadPacing
///     say TEXT                       prints it
///     touch FILE                     creates an empty file, to signal an observer
///     awaitfile FILE                 waits until the file exists
///
/// A program may add others, see addVerb().
class ScriptRun : public QObject
{
    Q_OBJECT

public:
    /// Without a script it does nothing, or takes one picture if a folder is given. Empty names
    /// mean no script and no pictures.
    ScriptRun(MainWindow& window, const CatalogueUpdate& check, const QString& scriptFile,
              const QString& pictureFolder);

    /// Performs a step of the program's own. Returns whether it is done; if not, it is called
    /// again, unless it has set `error`, which ends the script.
    using Perform = std::function<bool(const QStringList& words, QString& error)>;
    /// Adds a verb for such steps. Call it before start().
    void addVerb(const QString& verb, const Perform& perform);

    /// Returns false if the script cannot run; see errorText().
    bool isReady() const { return m_error.isEmpty(); }
    QString errorText() const { return m_error; }
    /// Call it once the window is shown.
    void start();
    bool hasFailed() const { return m_failed; }

private:
    void tryStep();
    bool done(const ScriptStep& step);
    bool pointed(const ScriptStep& step);
    bool performed(const ScriptStep& step);
    bool wheeled(int steps);
    bool revealed(const QString& name);
    bool typed(bool ok);
    bool isPainted();
    bool pictured(const QString& name);
    bool written(const QString& file);
    QPoint nativePoint(const QPoint& global) const;
    void finish();

    MainWindow& m_window;
    ScriptConditions m_conditions;
    ScriptTargets m_targets;
    RealInput m_input;
    QVector<ScriptStep> m_steps;
    QString m_pictures;
    bool m_scripted;
    QHash<QString, Perform> m_verbs; // of the program
    QTimer m_timer;
    QElapsedTimer m_stepTime;
    QPoint m_lastPoint;     // position of the current step's target when last checked
    int m_lastScrolled = 0; // position of the list when last revealed
    int m_next = 0;
    bool m_isHopeless = false; // the current step
    bool m_failed = false;
    QString m_error;
    QString m_missing; // the condition for which the current step waits
};
