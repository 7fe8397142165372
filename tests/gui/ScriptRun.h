#pragma once

#include "gui/RealInput.h"
#include "gui/ScriptConditions.h"
#include "gui/ScriptStep.h"
#include "gui/ScriptTargets.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVector>

class CatalogueUpdate;
class MainWindow;

/// Drives the window by the steps of a script, with the mouse and the keyboard of the X display,
/// prints each step, and closes the window behind the last one or the first that fails. A step
/// waits until what it needs is there, for 30 seconds.
///
///     hover TARGET, click TARGET     see ScriptTargets
///     reveal NAME                    turns the wheel over the list until the cell can be seen
///     wheel STEPS                    over the list; below 0 is down
///     press KEYS, type TEXT
///     wait CONDITION                 see ScriptConditions
///     screenshot NAME                of the window, into the folder of --screenshot; without one
///                                    the step does nothing
///     pace MILLISECONDS              of downloads, see DownloadPacing
///     say TEXT                       prints it
///     touch FILE                     makes an empty file, for whoever watches from outside
///     awaitfile FILE                 waits until there is one
class ScriptRun : public QObject
{
    Q_OBJECT

public:
    /// Without a script it does nothing, or takes one picture if there is a folder for it.
    /// Empty: no script, no pictures.
    ScriptRun(MainWindow& window, const CatalogueUpdate& check, const QString& scriptFile,
              const QString& pictureFolder);

    /// False: errorText() says why the script cannot run.
    bool isReady() const { return m_error.isEmpty(); }
    QString errorText() const { return m_error; }
    /// Once the window is shown.
    void start();
    bool hasFailed() const { return m_failed; }

private:
    void tryStep();
    bool done(const ScriptStep& step);
    bool pointed(const ScriptStep& step);
    bool wheeled(int steps);
    bool revealed(const QString& name);
    bool typed(bool ok);
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
    QTimer m_timer;
    QElapsedTimer m_stepTime;
    QPoint m_lastPoint; // where the present step's target was at the last look
    int m_next = 0;
    bool m_failed = false;
    QString m_error;
    QString m_missing; // what the present step waits for
};
