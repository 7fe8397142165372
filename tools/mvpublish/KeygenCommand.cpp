// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "KeygenCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "keys/KeyFiles.h"
#include "keys/Password.h"
#include "keys/SecretBytes.h"
#include "keys/SecretKey.h"

namespace {

/// Asks twice, since nobody sees what is typed.
bool askTwice(SecretBytes& password, QString* error)
{
    SecretBytes again;
    if (!Password::ask(QStringLiteral("Password for the new key: "), password, error)
        || !Password::ask(QStringLiteral("The same password again: "), again, error))
        return false;
    if (password == again)
        return true;
    *error = QStringLiteral("the two passwords differ");
    return false;
}

/// Returns false, with the reason in `error`, unless there is a password, or none is wanted.
bool takePassword(const Arguments& arguments, SecretBytes& password, QString* error)
{
    if (arguments.noPassword)
        return true;
    const bool isTaken = arguments.passwordDescriptor >= 0
        ? Password::read(arguments.passwordDescriptor, password, error)
        : askTwice(password, error);
    if (!isTaken || !password.isEmpty())
        return isTaken;
    *error =
        QStringLiteral("an empty password protects nothing; --no-password makes a key without one");
    return false;
}

} // namespace

int KeygenCommand::run(const Arguments& arguments)
{
    const QString file = arguments.operands.constFirst();
    const QString conflict = arguments.force ? QString() : KeyFiles::conflict(file);
    if (!conflict.isEmpty())
        return Console::fail(ExitStatus::failure, conflict);
    SecretBytes password;
    QString error;
    if (!takePassword(arguments, password, &error))
        return Console::fail(ExitStatus::failure, error);
    const SecretKey key = SecretKey::generate();
    const SecretBytes secret = key.toFile(password);
    if (secret.isEmpty())
        return Console::fail(ExitStatus::failure,
                             QStringLiteral("there is not enough memory to protect the key"));
    const QString id = key.publicKey().idText();
    const QString line = key.publicKey().toText();
    const QString publicText =
        QStringLiteral("untrusted comment: minisign public key %1\n%2\n").arg(id, line);
    if (!KeyFiles::write(file, secret, publicText.toLatin1(), arguments.force, &error))
        return Console::fail(ExitStatus::failure, error);
    Console::print(QStringLiteral("%1: secret key %2; whoever has it can publish").arg(file, id));
    Console::print(
        QStringLiteral("%1: public key for hosts: %2").arg(KeyFiles::publicFile(file), line));
    return ExitStatus::success;
}
