// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "EditorProgram.h"

class DemoCommandLine;
class DemoWorld;

/// Runs the editor on the samples, or on the settings that its command line names, and drives it by
/// a script if there is one.
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
