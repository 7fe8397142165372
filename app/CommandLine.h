#pragma once

#include <QString>
#include <QStringList>

/// The options of the program's command line.
class CommandLine
{
public:
    /// Needs an application object. Prints help or version and ends the process if asked to. On
    /// false see errorText().
    bool parse(const QStringList& arguments);
    QString errorText() const { return m_error; }

    QString settingsFile;     ///< host settings, an INI file; empty: none
    QString server;           ///< ends in "/"; empty: as the settings say
    QString root;             ///< download root; empty: below the user's data folder
    QString resources;        ///< installed resources; empty: as in the settings
    QString scriptFile;       ///< script that drives the window; empty: a person does
    QString screenshotFolder; ///< empty: no pictures
    bool demo = false;
    bool verbose = false; ///< print the library's log to standard error

private:
    bool check();
    bool fail(const QString& text);

    QString m_error;
};
