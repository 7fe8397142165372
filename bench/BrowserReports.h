#pragma once

#include "BrowserFileWatch.h"

#include <QString>

#include <functional>
#include <memory>

class BrowserWorld;
class mvThemelistview;
class MVThemeItemWdg;
class QWidget;
class SilentServer;

/// What single actions of the user cost in a list of many cells: the time until the result can be
/// seen, the files that were opened for it, and whether the server was asked.
class BrowserReports
{
public:
    /// `world` is the one that is loaded.
    BrowserReports(const BrowserWorld& world, const QString& styleSheet);
    ~BrowserReports();

    /// Prints a line per action. False if one asked the server, or opened a file again that had
    /// been opened already. A second list and an animation that is played again may do the latter.
    bool print();

private:
    enum Reading { NewFiles, ReadAgain };

    void report(const char* what, const std::function<void()>& action, Reading allowed = NewFiles);
    void reportQueuedFilling();
    void reportFilter(mvThemelistview& list);
    void reportRing();
    void reportHover(const mvThemelistview& list);
    void hover(const char* what, QWidget& cell, Reading allowed = NewFiles);

    std::unique_ptr<SilentServer> m_server;
    QString m_styleSheet;
    BrowserFileWatch m_watch;
    bool m_allKept = true;
};
