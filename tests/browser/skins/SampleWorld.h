// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/BrowserMetaTypes.h"
#include "browser/EUIItemType.h"
#include "support/FaultServer.h"

#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>

#include <atomic>
#include <memory>

class MVThemeItemWdg;
class mvThemelistview;
class QWidget;
struct SCfg_Item;

/// The samples as a long-time user has them: the whole catalogue, with every preview and most files
/// on disk, and a server for the rest. One per process.
///
/// The server stalls after `partlySent` of a body or answers 404, as the test chooses.
class SampleWorld
{
public:
    /// Sets how the server answers requests for an item's files. Stalled downloads fail when the
    /// answer changes.
    enum Answer { Stalls, NotFound };

    /// Sets up download root, settings and catalogue; downloads pause for 1 ms per step.
    SampleWorld();
    ~SampleWorld();
    Q_DISABLE_COPY_MOVE(SampleWorld)

    void setAnswer(Answer answer) { m_answer = answer; }
    /// Removes the item's own files from the disk.
    void lose(const SCfg_Item* item);
    /// Restores the files removed by lose().
    void restore();
    /// Returns whether the item's files ship with the application and so cannot be removed.
    static bool isBuiltIn(const SCfg_Item* item);

    /// The percentage that a download has reached when the server stalls.
    static constexpr int stalledPercent = 40;

private:
    void serve(HttpExchange& exchange) const;
    static QString folder(const SCfg_Item* item);

    QString m_root;
    QStringList m_lost; // folders below the root of the published files
    std::atomic<Answer> m_answer{Stalls};
    FaultServer m_server;
};

/// A visible window filled by a list of one kind, with all rows of the catalogue.
class SampleList
{
public:
    SampleList(EUIItemType type, const QSize& size);
    ~SampleList();
    Q_DISABLE_COPY_MOVE(SampleList)

    QWidget& window() { return *m_window; }
    mvThemelistview& view() { return *m_view; }
    int count() const;
    /// Returns the live cell of a row.
    MVThemeItemWdg* cell(int row) const;
    /// Moves the mouse over the cell, as the window system does. No tool tip comes up, however long
    /// it rests there.
    static void hover(const MVThemeItemWdg* cell);

private:
    std::unique_ptr<QWidget> m_window;
    mvThemelistview* m_view; // owned by the window
    std::unique_ptr<QObject> m_noToolTips;
};

/// Returns a part of a cell by its object name.
QWidget* partOf(const MVThemeItemWdg* cell, const char* name);
