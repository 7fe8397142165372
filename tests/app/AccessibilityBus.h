// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ConsoleProgram.h"

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// A session bus of its own, and on it the accessibility bus, as on a desktop with a screen reader.
/// Both end with this object.
///
/// Launch the accessibility bus when the program to be tested is on the session bus: Qt 5 programs
/// that find it there may try to register before they are connected, and never again. They need
/// the variable QT_LINUX_ACCESSIBILITY_ALWAYS_ON.
class AccessibilityBus
{
public:
    /// The environment is that of the programs on the bus.
    explicit AccessibilityBus(const QProcessEnvironment& environment);
    ~AccessibilityBus();
    Q_DISABLE_COPY_MOVE(AccessibilityBus)

    /// Returns the address of the session bus; empty if it could not be started.
    QString address() const { return m_address; }
    /// Returns whether any program is on the session bus.
    bool hasPrograms() const;
    /// Starts the accessibility bus. Returns false if that fails.
    bool launch();
    /// Runs tests/app/accessibility-client, which describes its arguments.
    Outcome runClient(const QStringList& arguments) const;
    /// Starts it; ConsoleProgram::end() waits for its end.
    void startClient(QProcess& client, const QStringList& arguments) const;

private:
    QByteArray call(const QStringList& message) const;

    QProcessEnvironment m_environment;
    QProcess m_session;
    QProcess m_launcher;
    QString m_address;
};
