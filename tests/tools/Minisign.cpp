// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Minisign.h"

#include "SmallMachine.h"

#include <QStandardPaths>
#include <QStringList>

namespace {

/// Returns a key's public file.
QString publicFile(const QString& key)
{
    return key + QStringLiteral(".pub");
}

} // namespace

QString Minisign::program()
{
    return QStandardPaths::findExecutable(QStringLiteral("minisign"));
}

QString Minisign::generate(const QString& file, const QByteArray& password)
{
    QStringList arguments{QStringLiteral("-G"), QStringLiteral("-p"), publicFile(file),
                          QStringLiteral("-s"), file};
    if (password.isEmpty())
        arguments.append(QStringLiteral("-W"));
    const Outcome outcome =
        SmallMachine::runWithInput(program(), arguments, password + '\n' + password + '\n');
    return outcome.status == 0 ? QString() : QString::fromUtf8(outcome.err + outcome.out);
}

Outcome Minisign::sign(const QString& file, const QString& key, const QByteArray& password)
{
    return ConsoleProgram::runWithInput(
        program(), {QStringLiteral("-S"), QStringLiteral("-s"), key, QStringLiteral("-m"), file},
        password + '\n');
}

Outcome Minisign::verify(const QString& file, const QString& key)
{
    return ConsoleProgram::run(
        program(),
        {QStringLiteral("-V"), QStringLiteral("-p"), publicFile(key), QStringLiteral("-m"), file});
}
