// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One line of a script: a command word and its arguments.
struct ScriptStep
{
    int line = 0;
    QString verb;
    QStringList words;

    /// Returns the text as written in the script.
    QString text() const;

    /// Reads a script: one step per line, words separated by blanks, words with blanks in double
    /// quotes, comments after "#". Returns false with the reason in `error`.
    static bool readAll(const QString& file, QVector<ScriptStep>& steps, QString& error);
};
