#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One line of a script: a word that says what to do, and what to do it with.
struct ScriptStep
{
    int line = 0;
    QString verb;
    QStringList words;

    /// As it stands in the script.
    QString text() const;

    /// Reads a script: a step per line, words parted by blanks, words with blanks in double quotes,
    /// comments behind "#". False: `error` says what is wrong.
    static bool readAll(const QString& file, QVector<ScriptStep>& steps, QString& error);
};
