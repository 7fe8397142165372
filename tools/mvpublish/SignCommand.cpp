// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SignCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "FolderSwitch.h"
#include "keys/KeyFiles.h"
#include "keys/Password.h"
#include "keys/SecretBytes.h"
#include "keys/SecretKey.h"
#include "release/ReleaseClock.h"
#include "release/ReleaseSigner.h"

#include <QDir>

namespace {

/// Takes the password of a key file that has one.
bool takePassword(const Arguments& arguments, const QString& file, SecretBytes& password,
                  QString* error)
{
    return arguments.passwordDescriptor >= 0
        ? Password::read(arguments.passwordDescriptor, password, error)
        : Password::ask(QStringLiteral("Password of %1: ").arg(file), password, error);
}

/// Reads the key. Returns false with the reason in `error`.
bool readKey(const Arguments& arguments, SecretKey& key, QString* error)
{
    const QString file = arguments.keys.constFirst();
    SecretBytes content;
    SecretBytes password;
    if (!KeyFiles::readSecret(file, content, error))
        return false;
    if (SecretKey::needsPassword(content) && !takePassword(arguments, file, password, error))
        return false;
    switch (SecretKey::read(content, password, key)) {
    case SecretKey::Result::Success:
        return true;
    case SecretKey::Result::Malformed:
        *error = QStringLiteral("%1 is not a secret key of minisign, or is damaged").arg(file);
        break;
    case SecretKey::Result::WrongPassword:
        *error = QStringLiteral("the password of %1 is wrong").arg(file);
        break;
    case SecretKey::Result::NoMemory:
        *error = QStringLiteral("there is not enough memory for the password of %1").arg(file);
        break;
    }
    return false;
}

} // namespace

int SignCommand::run(const Arguments& arguments)
{
    const QString tree = QDir::cleanPath(QDir().absoluteFilePath(arguments.operands.constFirst()));
    if (!QDir(tree).exists())
        return Console::fail(ExitStatus::failure, QStringLiteral("no such folder: %1").arg(tree));
    QString error;
    const QDateTime now = ReleaseClock::now(&error);
    if (!now.isValid())
        return Console::fail(ExitStatus::failure, error);
    FolderSwitch place(tree); // a build must not replace the tree meanwhile
    if (!place.lock())
        return Console::fail(ExitStatus::failure, place.errorText());
    ReleaseSigner signer(place.target());
    if (!signer.open(now))
        return Console::fail(ExitStatus::failure, signer.errorText());
    SecretKey key;
    if (!readKey(arguments, key, &error))
        return Console::fail(ExitStatus::failure, error);
    if (!signer.sign(key, now))
        return Console::fail(ExitStatus::failure, signer.errorText());
    Console::print(QStringLiteral("%1: release %2 is signed by key %3")
                       .arg(arguments.operands.constFirst(),
                            QString::number(signer.release().m_serial), key.publicKey().idText()));
    return ExitStatus::success;
}
