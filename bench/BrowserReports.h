// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

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

/// Reports the cost of single user actions in a list of many cells: the time until the result is
/// visible, the files opened for it, and whether the server was contacted.
class BrowserReports
{
public:
    /// `world` must be the loaded one.
    BrowserReports(const BrowserWorld& world, const QString& styleSheet);
    ~BrowserReports();

    /// Prints a line per action. Returns false if one contacted the server, or reopened a file.
    /// Only a second list and replaying an animation may do the latter.
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
