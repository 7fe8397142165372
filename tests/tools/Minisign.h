// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ConsoleProgram.h"

#include <QString>

/// The program minisign, with which keys and signatures of mvpublish must be interchangeable.
class Minisign
{
public:
    Minisign() = delete;

    /// Returns the installed program; empty if there is none.
    static QString program();
    /// Makes a key in `file` and `file`.pub, protected as on a SmallMachine; without a password if
    /// that is empty. Returns an error; empty: success.
    static QString generate(const QString& file, const QByteArray& password);
    static Outcome sign(const QString& file, const QString& key, const QByteArray& password);
    /// Verifies the signature beside a file with the public key in `key`.pub.
    static Outcome verify(const QString& file, const QString& key);
};
