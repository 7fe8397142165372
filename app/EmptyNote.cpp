// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "EmptyNote.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

EmptyNote::EmptyNote(QWidget* parent)
    : QWidget(parent)
    , m_why(new QLabel(this))
    , m_action(new QPushButton(this))
{
    m_why->setObjectName(QStringLiteral("whyEmpty"));
    m_why->setAlignment(Qt::AlignCenter);
    m_why->setWordWrap(true);
    m_why->setTextFormat(Qt::PlainText);
    m_action->setObjectName(QStringLiteral("whyEmptyAction"));
    auto* const layout = new QVBoxLayout(this);
    layout->addStretch(1);
    layout->addWidget(m_why);
    layout->addWidget(m_action, 0, Qt::AlignHCenter);
    layout->addStretch(2);
    connect(m_action, &QPushButton::clicked, this, &EmptyNote::actionWanted);
}

void EmptyNote::setTexts(const QString& why, const QString& action)
{
    m_why->setText(why);
    m_action->setText(action);
    m_action->setVisible(!action.isEmpty());
}
