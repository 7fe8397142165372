// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

/// Delivers the first interrupt as a signal of the event loop; a second one ends the process as
/// usual. Interrupts are SIGINT and SIGTERM, and ^C and ^Break in a console of Windows. One object
/// per process, on the main thread.
class Interrupt : public QObject
{
    Q_OBJECT

public:
    Interrupt();
    ~Interrupt() override;

signals:
    void requested();

private:
    class Private; // of the system
    std::unique_ptr<Private> d;
};
