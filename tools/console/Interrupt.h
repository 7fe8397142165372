// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

/// Delivers the first SIGINT or SIGTERM as a signal of the event loop; a second one ends the
/// process as usual. One object per process, on the main thread.
class Interrupt : public QObject
{
    Q_OBJECT

public:
    Interrupt();
    ~Interrupt() override;

signals:
    void requested();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
