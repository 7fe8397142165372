// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"

QString Mvpublish::program()
{
    return QStringLiteral(MVPUBLISH_PROGRAM);
}

Outcome Mvpublish::run(const QStringList& arguments)
{
    return ConsoleProgram::run(program(), arguments);
}

QString Mvpublish::build(const QString& source, const QString& out, const QStringList& options)
{
    const Outcome outcome = run(QStringList{QStringLiteral("build"), source, out} + options);
    return outcome.status == 0 ? QString() : QString::fromUtf8(outcome.err + outcome.out);
}
