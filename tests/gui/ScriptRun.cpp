// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "gui/ScriptRun.h"

#include "browser/mvThemelistview.h"
#include "download/DownloadPacing.h"
#include "host/widgets/PictureLoader.h"
#include "MainWindow.h"
#include "ResourceList.h"
#include "ResourceTabs.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QScreen>
#include <QScrollBar>

#include <chrono>
#include <cstdio>
#include <utility>

namespace {

constexpr int tryEvery = 25;           // ms
constexpr int shortWay = 24;           // pixels per movement of the mouse
constexpr int longestStep = 30 * 1000; // ms
constexpr int quicklyPacked = 80;      // 100 disables compression

void print(const QString& text)
{
    std::printf("%s\n", text.toLocal8Bit().constData());
    std::fflush(stdout);
}

} // namespace

ScriptRun::ScriptRun(MainWindow& window, const CatalogueUpdate& check, const QString& scriptFile,
                     const QString& pictureFolder)
    : m_window(window)
    , m_conditions(window, check)
    , m_targets(window)
    , m_pictures(pictureFolder)
    , m_scripted(!scriptFile.isEmpty())
{
    connect(&m_timer, &QTimer::timeout, this, &ScriptRun::tryStep);
    if (m_scripted) {
        ScriptStep::readAll(scriptFile, m_steps, m_error);
        if (m_error.isEmpty() && !m_input.isAvailable())
            m_error = QStringLiteral("a script needs an X display that takes its events");
    } else if (!m_pictures.isEmpty()) {
        m_steps = {{0, QStringLiteral("wait"), {QStringLiteral("quiet")}},
                   {0, QStringLiteral("screenshot"), {QStringLiteral("window")}}};
    }
    if (!m_pictures.isEmpty() && !QDir().mkpath(m_pictures))
        m_error = QStringLiteral("the folder cannot be created: %1").arg(m_pictures);
}

void ScriptRun::addVerb(const QString& verb, const Perform& perform)
{
    m_verbs.insert(verb, perform);
}

void ScriptRun::start()
{
    if (m_scripted)
        m_conditions.takeAddresses();
    if (m_steps.isEmpty()) {
        if (m_scripted)
            QMetaObject::invokeMethod(this, &ScriptRun::finish, Qt::QueuedConnection);
        return;
    }
    m_window.activateWindow(); // in case no window manager does it
    m_stepTime.start();
    m_timer.start(tryEvery);
}

void ScriptRun::tryStep()
{
    const ScriptStep& step = m_steps.at(m_next);
    m_missing.clear();
    if (done(step)) {
        print(step.verb == QLatin1String("say") ? step.words.join(QLatin1Char(' '))
                                                : QStringLiteral("  ") + step.text());
        m_stepTime.start();
        m_lastPoint = QPoint();
        if (++m_next == m_steps.size())
            finish();
        return;
    }
    if (!m_stepTime.hasExpired(longestStep) && !m_isHopeless)
        return;
    print(QStringLiteral("FAILED in line %1: %2 (%3)")
              .arg(QString::number(step.line), step.text(), m_missing));
    m_failed = true;
    pictured(QStringLiteral("failed"));
    finish();
}

bool ScriptRun::done(const ScriptStep& step)
{
    const QString first = step.words.value(0);
    if (step.verb == QLatin1String("hover") || step.verb.endsWith(QLatin1String("click")))
        return pointed(step);
    if (step.verb == QLatin1String("reveal"))
        return revealed(first);
    if (step.verb == QLatin1String("wheel"))
        return wheeled(first.toInt());
    if (step.verb == QLatin1String("press"))
        return typed(m_input.press(first));
    if (step.verb == QLatin1String("type"))
        return typed(m_input.type(first));
    if (step.verb == QLatin1String("screenshot"))
        return isPainted() && pictured(first);
    if (step.verb == QLatin1String("touch"))
        return written(first);
    if (step.verb == QLatin1String("pace"))
        DownloadPacing::setStep(std::chrono::milliseconds(first.toInt()));
    if (step.verb == QLatin1String("pace") || step.verb == QLatin1String("say"))
        return true;
    if (step.verb == QLatin1String("awaitfile")) {
        m_missing = QStringLiteral("there is none");
        return QFile::exists(first);
    }
    if (step.verb == QLatin1String("wait")) {
        const bool holds = m_conditions.holds(step.words);
        m_missing = m_conditions.errorText();
        return holds;
    }
    return performed(step);
}

/// Performs a step that the program has added.
bool ScriptRun::performed(const ScriptStep& step)
{
    m_missing = QStringLiteral("no such step");
    const auto perform = m_verbs.constFind(step.verb);
    if (perform == m_verbs.cend())
        return false;
    QString error;
    const bool isDone = (*perform)(step.words, error);
    m_isHopeless = !isDone && !error.isEmpty();
    m_missing = m_isHopeless ? error : QStringLiteral("it has not ended");
    return isDone;
}

bool ScriptRun::pointed(const ScriptStep& step)
{
    QPoint point;
    if (!m_targets.find(step.words, point)) {
        m_missing = m_targets.errorText();
        return false;
    }
    // Not while it moves, since a filter or a scroll bar is still active.
    m_missing = QStringLiteral("it does not stand still");
    const bool still = point == m_lastPoint;
    m_lastPoint = point;
    if (!still)
        return false;
    // The mouse must not jump: widgets on the way see it enter and leave.
    const QPoint here = QCursor::pos();
    if ((point - here).manhattanLength() > shortWay) {
        m_input.moveTo(nativePoint((here + point) / 2));
        return false;
    }
    m_input.moveTo(nativePoint(point));
    if (step.verb == QLatin1String("click"))
        m_input.click();
    else if (step.verb == QLatin1String("rightclick"))
        m_input.click(RealInput::Button::Right);
    else if (step.verb == QLatin1String("middleclick"))
        m_input.click(RealInput::Button::Middle);
    return true;
}

bool ScriptRun::wheeled(int steps)
{
    const QWidget* const list = m_window.tabs()->currentList()->view()->viewport();
    m_input.moveTo(nativePoint(list->mapToGlobal(list->rect().center())));
    m_input.wheel(steps);
    return true;
}

bool ScriptRun::revealed(const QString& name)
{
    m_missing = QStringLiteral("the cell does not come into view");
    const int scrolled = m_window.tabs()->currentList()->view()->verticalScrollBar()->value();
    if (std::exchange(m_lastScrolled, scrolled) != scrolled)
        m_stepTime.start(); // it is on its way, however long that is and however slow the machine
    const int place = m_targets.place(name);
    if (place != 0)
        wheeled(-place);
    return place == 0;
}

bool ScriptRun::typed(bool ok)
{
    if (!ok)
        m_missing = QStringLiteral("the keyboard has no such key");
    return ok;
}

bool ScriptRun::isPainted()
{
    if (m_pictures.isEmpty())
        return true;
    m_window.repaint(); // requests thumbnails that have not been painted yet
    m_missing = QStringLiteral("thumbnails are being decoded");
    return PictureLoader::isIdle();
}

bool ScriptRun::pictured(const QString& name)
{
    if (m_pictures.isEmpty())
        return true;
    const QString file = m_pictures + QLatin1Char('/') + name + QStringLiteral(".png");
    QRect frame = m_window.geometry();
    if (const QWidget* const dialog = QApplication::activeModalWidget())
        frame |= dialog->geometry(); // it may be larger
    // Takes the picture from the display, including open menus; other platforms only render the
    // window.
    const QPixmap picture = QGuiApplication::platformName() == QLatin1String("xcb")
        ? m_window.screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height())
        : m_window.grab();
    m_missing = QStringLiteral("%1 cannot be written").arg(file);
    return picture.save(file, "PNG", quicklyPacked);
}

bool ScriptRun::written(const QString& file)
{
    m_missing = QStringLiteral("it cannot be written");
    QFile target(file);
    return target.open(QIODevice::WriteOnly);
}

QPoint ScriptRun::nativePoint(const QPoint& global) const
{
    return (QPointF(global) * m_window.devicePixelRatioF()).toPoint();
}

void ScriptRun::finish()
{
    m_timer.stop();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (window != &m_window && window->isVisible())
            window->close(); // an open menu or dialog
    }
    m_window.close();
}
