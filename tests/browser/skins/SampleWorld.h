#pragma once

#include "browser/EUIItemType.h"
#include "support/FaultServer.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <atomic>
#include <memory>

class MVThemeItemWdg;
class mvThemelistview;
class QWidget;
struct SCfg_Item;

/// The samples as a user has them after a while: the whole catalogue, with every preview and most
/// files on disk, and a server for the rest. One per process.
///
/// The server sends `partlySent` of a body and no more, or answers 404, by what a test asks for.
class SampleWorld
{
public:
    /// What the server does when the files of an item are asked for. Stalled downloads fail when it
    /// does something else.
    enum Answer { Stalls, NotFound };

    /// Download root, settings and catalogue; downloads run at a pace of 1 ms.
    SampleWorld();
    ~SampleWorld();
    Q_DISABLE_COPY_MOVE(SampleWorld)

    void setAnswer(Answer answer) { m_answer = answer; }
    /// Takes the item's own files off the disk.
    void lose(const SCfg_Item* item);
    /// Puts back what was lost.
    void restore();
    /// Whether the application brings the item's files, so that they cannot be lost.
    static bool isBuiltIn(const SCfg_Item* item);

    /// Per cent that a download has reached when the server stalls.
    static constexpr int stalledPercent = 40;

private:
    void serve(HttpExchange& exchange) const;
    static QString folder(const SCfg_Item* item);

    QString m_root;
    QStringList m_lost; // folders below that of the published files
    std::atomic<Answer> m_answer{Stalls};
    FaultServer m_server;
};

/// A shown window that is filled by a list of one kind, with all rows of the catalogue.
class SampleList
{
public:
    SampleList(EUIItemType type, const QSize& size);
    ~SampleList();
    Q_DISABLE_COPY_MOVE(SampleList)

    QWidget& window() { return *m_window; }
    mvThemelistview& view() { return *m_view; }
    int count() const;
    /// The live cell of a row.
    MVThemeItemWdg* cell(int row) const;
    /// Moves the mouse over the cell, as the window system does.
    static void hover(const MVThemeItemWdg* cell);

private:
    std::unique_ptr<QWidget> m_window;
    mvThemelistview* m_view; // owned by the window
};

/// A part of a cell by its object name.
QWidget* partOf(const MVThemeItemWdg* cell, const char* name);
