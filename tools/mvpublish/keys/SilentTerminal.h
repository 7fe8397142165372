// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <memory>

/// The terminal of the process, whatever its standard streams are, which shows nothing of what is
/// typed while the object exists. The keys that would signal the process arrive as bytes, so that
/// none ends it meanwhile.
class SilentTerminal
{
public:
    SilentTerminal();
    ~SilentTerminal();
    Q_DISABLE_COPY_MOVE(SilentTerminal)

    /// Returns false if the process has no terminal.
    bool isSilent() const;
    void print(const QByteArray& text) const;
    /// Waits for a typed byte; a letter that is not ASCII is several, in the terminal's encoding.
    /// Returns false once the terminal has been closed.
    bool readByte(char& byte) const;

private:
    class Private; // of the system
    std::unique_ptr<Private> d;
};
