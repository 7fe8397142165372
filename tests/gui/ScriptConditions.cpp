// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "gui/ScriptConditions.h"

#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/SCellState.h"
#include "catalogue/MVThemeMgr.h"
#include "CheckStatus.h"
#include "download/CatalogueUpdate.h"
#include "MainWindow.h"
#include "PreviewPane.h"
#include "ResourceList.h"
#include "ResourceTabs.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStatusBar>
#include <QTreeWidget>

namespace {

QString phaseName(CatalogueUpdate::Phase phase)
{
    switch (phase) {
    case CatalogueUpdate::Phase::Idle:
        return QStringLiteral("idle");
    case CatalogueUpdate::Phase::Catalogue:
        return QStringLiteral("catalogue");
    case CatalogueUpdate::Phase::Previews:
        return QStringLiteral("previews");
    case CatalogueUpdate::Phase::Waiting:
        return QStringLiteral("waiting");
    }
    return {};
}

QString yesNo(bool yes)
{
    return yes ? QStringLiteral("yes") : QStringLiteral("no");
}

bool lacksFiles(SCfg_Item* item)
{
    QVector<SFileInfo*> missing;
    MVThemeMgr::init()->getNeedDownLoadFiles(item, missing);
    return !missing.isEmpty();
}

bool showsError(const MVThemeItemWdg& cell)
{
    return cell.findChild<QWidget*>(QStringLiteral("frmNetError"))->isVisible();
}

bool plays(const MVThemeItemWdg& cell)
{
    return cell.findChild<MVThemeItemSubwdgt_Preview*>()->isPlaying();
}

QString textOf(const QWidget* widget)
{
    if (const auto* editor = qobject_cast<const QPlainTextEdit*>(widget))
        return editor->toPlainText();
    return widget ? widget->property("text").toString() : QString();
}

bool hasRow(const QWidget* widget, const QString& text)
{
    const auto* const tree = qobject_cast<const QTreeWidget*>(widget);
    const auto matches = Qt::MatchContains | Qt::MatchRecursive;
    for (int column = 0; tree && column < tree->columnCount(); ++column) {
        if (!tree->findItems(text, matches, column).isEmpty())
            return true;
    }
    return false;
}

QString spokenName(QWidget* widget)
{
    QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(widget);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

} // namespace

ScriptConditions::ScriptConditions(MainWindow& window, const CatalogueUpdate& check)
    : m_window(window)
    , m_check(check)
    , m_targets(window)
{
}

void ScriptConditions::takeAddresses()
{
    for (const char* scheme : {"file", "http", "https"})
        QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
}

ScriptConditions::~ScriptConditions()
{
    for (const char* scheme : {"file", "http", "https"})
        QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
}

void ScriptConditions::open(const QUrl& address)
{
    m_opened.append(address.toString());
}

bool ScriptConditions::holds(const QStringList& words)
{
    m_error = QStringLiteral("no such condition");
    const QString what = words.value(0);
    const QString value = words.value(1);
    return holdsForWindow(what, value) || holdsForCell(what, value)
        || holdsForWidget(what, value, words.value(2));
}

bool ScriptConditions::holdsForWindow(const QString& what, const QString& value)
{
    const mvThemelistview* const view = m_window.tabs()->currentList()->view();
    if (what == QLatin1String("phase"))
        return equals(phaseName(m_check.phase()), value);
    if (what == QLatin1String("quiet"))
        return equals(yesNo(!m_check.isRunning() && !m_window.isReloadPending()),
                      QStringLiteral("yes"));
    if (what == QLatin1String("status"))
        return contains(m_window.checkStatus()->text(), value);
    if (what == QLatin1String("message"))
        return contains(m_window.statusBar()->currentMessage(), value);
    if (what == QLatin1String("reloads"))
        return equals(QString::number(m_window.reloads()), value);
    if (what == QLatin1String("shown"))
        return equals(QString::number(m_window.tabs()->currentList()->shownItems()), value);
    if (what == QLatin1String("scrolled"))
        return equals(yesNo(view->verticalScrollBar()->value() > 0), value);
    if (what == QLatin1String("current"))
        return equals(view->currentIndex().data(UIItemRole_Name).toString(), value);
    if (what == QLatin1String("opened"))
        return contains(m_opened.join(QLatin1Char(' ')), value);
    if (what == QLatin1String("clipboard"))
        return contains(QGuiApplication::clipboard()->text(), value);
    if (what != QLatin1String("downloads"))
        return false;
    const QVector<ResourceList*>& lists = m_window.tabs()->lists();
    const bool any = std::any_of(lists.cbegin(), lists.cend(), [](const ResourceList* list) {
        return list->view()->isDownloading();
    });
    return equals(any ? QStringLiteral("some") : QStringLiteral("none"), value);
}

bool ScriptConditions::holdsForCell(const QString& what, const QString& name)
{
    static const QStringList known = {
        QStringLiteral("applied"),   QStringLiteral("downloading"), QStringLiteral("failed"),
        QStringLiteral("sound"),     QStringLiteral("ready"),       QStringLiteral("lacking"),
        QStringLiteral("favourite"), QStringLiteral("plain"),       QStringLiteral("playing"),
        QStringLiteral("still"),     QStringLiteral("seen"),        QStringLiteral("unseen"),
        QStringLiteral("outdated"),  QStringLiteral("uptodate")};
    if (!known.contains(what))
        return false;
    m_error = QStringLiteral("no cell of that name");
    const MVThemeItemWdg* const cell = m_targets.cell(name);
    SCfg_Item* const item = cell ? cell->getItem() : nullptr;
    if (!item)
        return false;
    m_error = QStringLiteral("it is not");
    if (what == QLatin1String("applied"))
        return cell->isChecked()
            && equals(textOf(ScriptTargets::widget(QStringLiteral("appliedName"))), name);
    if (what == QLatin1String("downloading"))
        return cell->isDownloading();
    if (what == QLatin1String("failed"))
        return showsError(*cell);
    if (what == QLatin1String("sound"))
        return !showsError(*cell);
    if (what == QLatin1String("ready"))
        return !lacksFiles(item);
    if (what == QLatin1String("lacking"))
        return lacksFiles(item);
    if (what == QLatin1String("favourite"))
        return MVThemeMgr::init()->isItemCollect(item);
    if (what == QLatin1String("plain"))
        return !MVThemeMgr::init()->isItemCollect(item);
    if (what == QLatin1String("outdated") || what == QLatin1String("uptodate")) {
        const mvThemelistview* const view = m_window.tabs()->currentList()->view();
        const bool isOutdated = view->stateOf(item->m_qsGUID).files == SCellState::Files::Outdated;
        return isOutdated == (what == QLatin1String("outdated"));
    }
    if (what.endsWith(QLatin1String("seen")))
        return cell->visibleRegion().isEmpty() == (what == QLatin1String("unseen"));
    return plays(*cell) == (what == QLatin1String("playing"));
}

bool ScriptConditions::holdsForWidget(const QString& what, const QString& name, const QString& text)
{
    QWidget* const widget = ScriptTargets::widget(name);
    if (what == QLatin1String("text"))
        return contains(textOf(widget), text);
    if (what == QLatin1String("spoken"))
        return contains(widget ? spokenName(widget) : QString(), text);
    if (what.endsWith(QLatin1String("row")) && widget) {
        m_error = QStringLiteral("it is not");
        return hasRow(widget, text) == (what == QLatin1String("row"));
    }
    if (what == QLatin1String("preview")) {
        const auto* const pane =
            qobject_cast<PreviewPane*>(ScriptTargets::widget(QStringLiteral("largePreview")));
        return equals(
            pane && pane->isPlaying() ? QStringLiteral("playing") : QStringLiteral("still"), name);
    }
    if (what == QLatin1String("gone"))
        return equals(yesNo(!widget), QStringLiteral("yes"));
    if (what.endsWith(QLatin1String("abled"))) {
        const bool isEnabled = widget && widget->isEnabled();
        return equals(isEnabled ? QStringLiteral("enabled") : QStringLiteral("disabled"), what);
    }
    if (what != QLatin1String("focus"))
        return false;
    const QWidget* const focused = QApplication::focusWidget();
    return equals(focused ? focused->objectName() : QString(), name);
}

bool ScriptConditions::contains(const QString& actual, const QString& wanted)
{
    m_error = QStringLiteral("it is \"%1\"").arg(actual);
    return actual.contains(wanted);
}

bool ScriptConditions::equals(const QString& actual, const QString& wanted)
{
    m_error = QStringLiteral("it is \"%1\"").arg(actual);
    return actual == wanted;
}
