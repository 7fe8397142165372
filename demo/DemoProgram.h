// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "EditorProgram.h"

class DemoCommandLine;
class DemoShop;
class DemoWorld;
class ScriptRun;

/// Runs the editor on the samples, or on the settings that its command line names, and drives it by
/// a script if there is one. On the samples scripts have two more steps:
///
///     correct THEME      changes an archive of the theme in the publisher's source
///     publish            publishes the source as another release
///     server answers     or "is-silent" (it takes requests and sends nothing), or "is-stopped"
///     copyserver         copies the server's address to the clipboard
///     project NAME...    opens a project that needs the themes of these names
///
/// and on any settings:
///
///     size WIDTH HEIGHT  resizes the window
///     pause MS           waits, between the pictures of an animation
///     patience MS        after which a silent server is told, see ServerSilence
class DemoProgram : public EditorProgram
{
public:
    /// `world` must outlive the catalogue, which saves favourites after main().
    DemoProgram(DemoCommandLine& commandLine, DemoWorld& world);

protected:
    bool prepare(HostSettings& settings, QString& error) override;
    QString preferencesFile() const override;
    int exec(MainWindow& window, CatalogueUpdate& check) override;

private:
    void addWindowVerbs(ScriptRun& script, MainWindow& window);
    void addShopVerbs(ScriptRun& script, DemoShop& shop);
    void addServerVerbs(ScriptRun& script, MainWindow& window);
    bool setServer(const QString& state, QString& error);
    bool openProject(MainWindow& window, const QStringList& themes, QString& error);

    const DemoCommandLine& m_commandLine;
    DemoWorld& m_world;
};
