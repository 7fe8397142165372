// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/HostOptions.h"

#include <QString>
#include <QStringList>

class QCommandLineParser;
class QCoreApplication;

/// The command line of mvres, validated as far as possible without reading files.
class Arguments
{
public:
    /// Prints help or version and ends the process if asked to. On false see errorText().
    bool parse(const QCoreApplication& application);
    QString errorText() const { return m_error; }

    HostOptions host;
    bool json = false;
    bool off = false;
    bool wait = false;
    bool all = false;
    bool dryRun = false;
    bool deep = false;
    bool repair = false;
    bool fetch = false;
    QString command;
    QStringList operands;

private:
    bool readSwitches(const QCommandLineParser& parser);
    bool checkOperands();
    bool fail(const QString& text);

    QString m_error;
};
