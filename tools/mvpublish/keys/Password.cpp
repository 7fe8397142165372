// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "keys/Password.h"

#include "host/SystemFile.h"
#include "keys/SilentTerminal.h"
#include "SystemError.h"

#include <cerrno>

namespace {

constexpr char interrupt = 0x03;  // ^C
constexpr char endOfInput = 0x04; // ^D
constexpr char backspace = 0x08;
constexpr char eraseLine = 0x15; // ^U
constexpr char rubout = 0x7f;

const QString tooLong =
    QStringLiteral("a password has at most %1 bytes").arg(static_cast<int>(Password::maxBytes));

bool fail(QString* error, const QString& text)
{
    *error = text;
    return false;
}

/// Reads one byte. Returns false at the end and after an error, which errno then tells.
bool readByte(int descriptor, char& byte)
{
    errno = 0;
    return SystemFile::readNext(descriptor, &byte, 1) == 1;
}

/// Reads a line with the keys that edit one. Returns false with the reason in `error`.
bool readTyped(const SilentTerminal& terminal, SecretBytes& line, QString* error)
{
    std::size_t length = 0;
    for (char byte = 0; terminal.readByte(byte);) {
        if (byte == '\n' || byte == '\r' || byte == endOfInput) {
            line.truncate(length);
            return true;
        }
        if (byte == interrupt)
            return fail(error, QStringLiteral("interrupted"));
        if (byte == eraseLine)
            length = 0;
        else if (byte == backspace || byte == rubout)
            length -= length > 0 ? 1 : 0;
        else if (length == Password::maxBytes)
            return fail(error, tooLong);
        else
            line.text()[length++] = byte;
    }
    return fail(error, QStringLiteral("the terminal was closed"));
}

} // namespace

bool Password::ask(const QString& prompt, SecretBytes& password, QString* error)
{
    const SilentTerminal terminal;
    if (!terminal.isSilent())
        return fail(error,
                    QStringLiteral("there is no terminal on which to ask for a password; see "
                                   "--password-fd"));
    terminal.print(prompt.toLocal8Bit());
    SecretBytes line(maxBytes);
    const bool isRead = readTyped(terminal, line, error);
    terminal.print("\n");
    if (isRead)
        password = std::move(line);
    return isRead;
}

bool Password::read(int descriptor, SecretBytes& password, QString* error)
{
    SecretBytes line(maxBytes);
    std::size_t length = 0;
    char byte = 0;
    while (readByte(descriptor, byte) && byte != '\n') {
        if (length == maxBytes)
            return fail(error, tooLong);
        line.text()[length++] = byte;
    }
    if (errno != 0)
        return fail(error,
                    QStringLiteral("the password cannot be read from descriptor %1: %2")
                        .arg(descriptor)
                        .arg(systemError()));
    if (length > 0 && line.text()[length - 1] == '\r')
        --length;
    line.truncate(length);
    password = std::move(line);
    return true;
}
