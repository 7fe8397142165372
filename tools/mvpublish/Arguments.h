#pragma once

#include "tree/Editions.h"

#include <QString>
#include <QStringList>

class QCoreApplication;
class QCommandLineOption;
class QCommandLineParser;

/// The command line of mvpublish, checked as far as that is possible without reading anything.
class Arguments
{
public:
    /// Prints help or version and ends the process where that is asked for. False: errorText().
    bool parse(const QCoreApplication& application);
    QString errorText() const { return m_error; }

    QString command;
    QStringList operands;
    QVector<Edition> editions; ///< build: at least one
    bool installed = false;
    QString source; ///< new: the folder for the item
    bool json = false;
    bool quiet = false;
    quint16 port = 0;

private:
    bool checkOperands(const QStringList& options);
    bool readEditions(const QStringList& texts);
    bool readPort(const QString& text);
    bool fail(const QString& text);

    QString m_error;
};
