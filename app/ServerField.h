// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ServerProbe.h"

#include <QWidget>

#include <optional>

class QLabel;
class QLineEdit;
class QTimer;

/// A field for the address of a resource server that tells, while the user types, what is published
/// there.
class ServerField : public QWidget
{
    Q_OBJECT

public:
    /// The parts are named after the field: "welcomeServer", "welcomeServerFound".
    ServerField(const QString& name, QWidget* parent);

    void setText(const QString& text);
    /// Returns the normalised address; empty while the text is none, see ServerAddress.
    QString address() const;
    /// Returns whether a catalogue was found at address().
    bool isFound() const { return m_result && m_result->isFound; }
    /// Returns whether the server is being asked.
    bool isAsking() const { return m_isAsking; }
    QLineEdit* edit() const { return m_edit; }

signals:
    /// The address, or what is known of it, has changed.
    void changed();

protected:
    void changeEvent(QEvent* event) override;

private:
    void startOver();
    void ask();
    void take(const ServerProbe::Result& result);
    void retranslate();
    QString verdict() const;

    QLineEdit* m_edit;
    QLabel* m_found;
    QTimer* m_typing; // ends when the user pauses
    ServerProbe* m_probe;
    bool m_isAsking = false;
    std::optional<ServerProbe::Result> m_result;
};
