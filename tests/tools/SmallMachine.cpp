// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SmallMachine.h"

namespace {

#ifdef __SANITIZE_ADDRESS__
const char limitedCommand[] = R"(exec "$@")";
#else
const char limitedCommand[] = R"(ulimit -v 240000 && exec "$@")"; // KiB of addresses
#endif

} // namespace

QStringList SmallMachine::command(const QString& program, const QStringList& arguments)
{
    return QStringList{QStringLiteral("/bin/sh"), QStringLiteral("-c"),
                       QString::fromLatin1(limitedCommand), QStringLiteral("sh"), program}
    + arguments;
}

Outcome SmallMachine::runWithInput(const QString& program, const QStringList& arguments,
                                   const QByteArray& input)
{
    const QStringList words = command(program, arguments);
    return ConsoleProgram::runWithInput(words.constFirst(), words.mid(1), input);
}
