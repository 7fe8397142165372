// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A pseudo-terminal of a given width, to be a program's standard output, or its terminal.
class Terminal
{
public:
    explicit Terminal(int columns);
    ~Terminal();
    Q_DISABLE_COPY_MOVE(Terminal)

    /// Returns its device file, for QProcess::setStandardOutputFile().
    QString device() const { return m_device; }
    /// Returns what has been written to it since the last call.
    QByteArray read();

    /// Types on its keyboard.
    void type(const QByteArray& keys) const;
    /// Returns whether it shows what is typed.
    bool isEchoing() const;

    /// Returns the final lines as a person sees them: "\r" goes back, "\033[K" clears the rest.
    static QStringList screen(const QByteArray& bytes);

private:
    int m_master = -1;
    int m_slave = -1; // kept open, since reading fails once no process has it open
    QString m_device;
};
