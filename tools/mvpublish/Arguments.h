#pragma once

#include "tree/Editions.h"

#include <QString>
#include <QStringList>

class QCoreApplication;
class QCommandLineOption;
class QCommandLineParser;

/// The command line of mvpublish, validated as far as possible without reading files.
class Arguments
{
public:
    /// Prints help or version and ends the process if asked to. On false see errorText().
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
