// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class ServerField;

/// The first page of a program that knows no resource server: asks for its address and tells what
/// is found there.
class WelcomePage : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomePage(QWidget* parent);

signals:
    /// The user has chosen a server by its normalised address.
    void serverChosen(const QString& address);
    /// The user goes on without a server.
    void skipped();

protected:
    void changeEvent(QEvent* event) override;

private:
    void arrange();
    void retranslate();
    void refresh();

    QLabel* m_title;
    QLabel* m_text;
    ServerField* m_server;
    QPushButton* m_use;
    QPushButton* m_skip;
};
