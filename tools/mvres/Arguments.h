#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

class QCoreApplication;

/// The command line of mvres, validated as far as possible without reading files.
class Arguments
{
public:
    /// Prints help or version and ends the process if asked to. On false see errorText().
    bool parse(const QCoreApplication& application);
    QString errorText() const { return m_error; }

    QString settingsFile;
    QString server; ///< ends in "/"; empty: not given
    QString root;
    QString resources;
    QMap<QString, QString> params;
    bool json = false;
    bool verbose = false;
    bool off = false;
    bool wait = false;
    QString command;
    QStringList operands;

private:
    bool readServer(const QString& text);
    bool readParams(const QStringList& texts);
    bool checkOperands();
    bool fail(const QString& text);

    QString m_error;
};
