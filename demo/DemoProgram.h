// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "EditorProgram.h"

class DemoCommandLine;
class DemoWorld;

/// Runs the editor on the samples, or on the settings that its command line names, and drives it by
/// a script if there is one. On the samples scripts have two more steps:
///
///     correct THEME      changes an archive of the theme in the publisher's source
///     publish            publishes the source as another release
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
    const DemoCommandLine& m_commandLine;
    DemoWorld& m_world;
};
