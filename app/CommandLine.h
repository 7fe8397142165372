#pragma once

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

    /// Needs an application object. Prints help or version and ends the process where that is asked
    /// for. False: errorText() says what is wrong.
    bool parse(const QStringList& arguments);
    QString errorText() const { return m_error; }

    QString settingsFile; ///< host settings, an INI file; empty: none
    QString server;       ///< ends in "/"; empty: as the settings say
    QString root;         ///< download root; empty: below the user's data
    QString resources;    ///< installed resources; empty: as the settings say
    bool verbose = false; ///< the library's log goes to standard error

protected:
    /// Adds the options and the description of the program.
    virtual void addOptions(QCommandLineParser& parser) const;
    /// Takes the options' values. False: fail() has been told why they are refused.
    virtual bool read(const QCommandLineParser& parser);
    /// Sets errorText() and returns false.
    bool fail(const QString& text);

private:
    bool checkServer();

    QString m_error;
};
