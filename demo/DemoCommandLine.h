// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "CommandLine.h"

/// The editor's options, and those of the demo.
class DemoCommandLine : public CommandLine
{
public:
    /// Returns whether the program serves the samples itself, as it does without a settings file.
    bool showsSamples() const { return host.settingsFile.isEmpty(); }

    QString scriptFile;        ///< drives the window; empty: a person does
    QString screenshotFolder;  ///< empty: no pictures
    QString skin;              ///< of the window at its start; empty: that of the preferences
    bool isFirstStart = false; ///< no server is configured, as for a new user

protected:
    ProgramTable table() const override;
    bool read(const QCommandLineParser& parser) override;
};
