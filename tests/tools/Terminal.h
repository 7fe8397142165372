#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// A pseudo-terminal of a given width, as standard output of a program.
class Terminal
{
public:
    explicit Terminal(int columns);
    ~Terminal();
    Q_DISABLE_COPY_MOVE(Terminal)

    /// Its device file, for QProcess::setStandardOutputFile().
    QString device() const { return m_device; }
    /// What has been written to it since the last call.
    QByteArray read();

    /// Its lines as a person sees them at the end: "\r" goes back, "\033[K" clears the rest.
    static QStringList screen(const QByteArray& bytes);

private:
    int m_master = -1;
    int m_slave = -1; // open all the time, else reading fails when the program ends
    QString m_device;
};
