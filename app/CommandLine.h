// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/HostOptions.h"
#include "ProgramTable.h"

#include <QString>
#include <QStringList>

class QCommandLineParser;

/// The options of the program's command line. A program with more of them derives its own.
class CommandLine
{
public:
    CommandLine() = default;
    virtual ~CommandLine() = default;
    Q_DISABLE_COPY_MOVE(CommandLine)

    /// Needs an application object. Prints help or version and ends the process if asked to. On
    /// false see errorText().
    bool parse(const QStringList& arguments);
    QString errorText() const { return m_error; }

    HostOptions host;
    QString project; ///< a project file to open; empty: none

protected:
    /// Returns what the program takes, and how its help describes it.
    virtual ProgramTable table() const;
    /// Takes the options' values. Returns fail() with the reason if they are refused.
    virtual bool read(const QCommandLineParser& parser);
    /// Sets errorText() and returns false.
    bool fail(const QString& text);

private:
    QString m_error;
};
