#pragma once

#include "EditorProgram.h"

class DemoCommandLine;
class DemoWorld;

/// The editor on the samples, unless its settings are named, and driven by a script if there is
/// one.
class DemoProgram : public EditorProgram
{
public:
    /// `world` must outlive the catalogue, and so the main function.
    DemoProgram(DemoCommandLine& commandLine, DemoWorld& world);

protected:
    bool prepare(HostSettings& settings, QString& error) override;
    QString preferencesFile() const override;
    int exec(MainWindow& window, CatalogueUpdate& check) override;

private:
    const DemoCommandLine& m_commandLine;
    DemoWorld& m_world;
};
