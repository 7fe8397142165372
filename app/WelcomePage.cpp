// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WelcomePage.h"

#include "ServerField.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

WelcomePage::WelcomePage(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_text(new QLabel(this))
    , m_server(new ServerField(QStringLiteral("welcomeServer"), this))
    , m_use(new QPushButton(this))
    , m_skip(new QPushButton(this))
{
    m_title->setObjectName(QStringLiteral("welcomeTitle"));
    m_text->setObjectName(QStringLiteral("welcomeText"));
    for (QLabel* label : {m_title, m_text}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_use->setObjectName(QStringLiteral("welcomeUse"));
    m_use->setDefault(true);
    m_skip->setObjectName(QStringLiteral("welcomeSkip"));
    arrange();
    setFocusProxy(m_server);
    connect(m_server, &ServerField::changed, this, &WelcomePage::refresh);
    connect(m_server->edit(), &QLineEdit::returnPressed, m_use, [this] { m_use->click(); });
    connect(m_use, &QPushButton::clicked, this, [this] { emit serverChosen(m_server->address()); });
    connect(m_skip, &QPushButton::clicked, this, &WelcomePage::skipped);
    retranslate();
}

void WelcomePage::arrange()
{
    constexpr int maxColumn = 560; // longer lines are hard to read
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_use);
    buttons->addWidget(m_skip);
    buttons->addStretch();
    auto* const parts = new QWidget(this);
    parts->setMaximumWidth(maxColumn);
    auto* const column = new QVBoxLayout(parts);
    column->addStretch(1);
    for (QWidget* part : {static_cast<QWidget*>(m_title), static_cast<QWidget*>(m_text),
                          static_cast<QWidget*>(m_server)})
        column->addWidget(part);
    column->addLayout(buttons);
    column->addStretch(2);
    auto* const layout = new QHBoxLayout(this);
    layout->addStretch(1);
    layout->addWidget(parts, maxColumn);
    layout->addStretch(1);
}

void WelcomePage::retranslate()
{
    m_title->setText(tr("Where do your resources come from?"));
    m_text->setText(tr("Themes, filters and backgrounds come from a resource server. Enter the "
                       "address that you have been given; it can be changed in the settings."));
    m_skip->setText(tr("Continue without a server"));
    refresh();
}

void WelcomePage::refresh()
{
    const bool isKnown =
        m_server->isFound() || m_server->isAsking() || m_server->address().isEmpty();
    m_use->setText(isKnown ? tr("Use this server") : tr("Use it anyway"));
    m_use->setEnabled(!m_server->address().isEmpty() && !m_server->isAsking());
}

void WelcomePage::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
