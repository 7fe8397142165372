// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "BlockWatch.h"

#include <QString>

#include <functional>
#include <memory>

class BrowserWorld;
class CatalogueUpdate;
class MainWindow;
class mvThemelistview;
class Preferences;
class ResourceTabs;

/// Opens the editor's window and performs what its user does, in one process.
class WindowActions
{
public:
    /// Receives a figure. Names without a blank are those of actions, with the longest block in
    /// milliseconds; the others contain their unit.
    using Receiver = std::function<void(const char* what, double value)>;

    /// `home` is a folder for the window's preferences.
    WindowActions(const BrowserWorld& world, const QString& home);
    ~WindowActions();

    /// Measures the start, each action, and the memory.
    void run(const Receiver& receiver);

private:
    void open(const Receiver& receiver);
    void filter(const Receiver& receiver);
    void filterByFiles(const Receiver& receiver);
    void look(const Receiver& receiver);
    void scroll(const Receiver& receiver);
    void measure(const Receiver& receiver, const char* what, const std::function<void()>& action);
    mvThemelistview& list() const;

    const BrowserWorld& m_world;
    BlockWatch m_watch;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<CatalogueUpdate> m_check;
    std::unique_ptr<MainWindow> m_window;
};
