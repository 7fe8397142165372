// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ConsoleProgram.h"

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// A session bus with the accessibility bus, as on a desktop with a screen reader. Both run for the
/// lifetime of this object.
class AccessibilityBus
{
public:
    /// The environment is that of the programs on the bus.
    explicit AccessibilityBus(QProcessEnvironment environment);
    ~AccessibilityBus();
    Q_DISABLE_COPY_MOVE(AccessibilityBus)

    /// Returns whether both could be started.
    bool isReady() const { return m_isReady; }
    /// Returns the address of the session bus.
    QString address() const { return m_address; }
    /// Runs tests/app/accessibility-client, which describes its arguments.
    Outcome runClient(const QStringList& arguments) const;
    /// Starts it; ConsoleProgram::end() waits for its end.
    void startClient(QProcess& client, const QStringList& arguments) const;

private:
    QByteArray call(const QStringList& message) const;

    QProcessEnvironment m_environment;
    QProcess m_session;
    QString m_address;
    bool m_isReady = false;
};
