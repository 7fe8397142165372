// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FailureBox.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

FailureBox::FailureBox(QWidget* parent)
    : QFrame(parent)
    , m_title(new QLabel(this))
    , m_text(new QPlainTextEdit(this))
    , m_retry(new QPushButton(this))
    , m_details(new QPushButton(this))
    , m_copy(new QPushButton(this))
    , m_close(new QPushButton(this))
{
    setObjectName(QStringLiteral("failure"));
    setFrameShape(StyledPanel);
    m_title->setObjectName(QStringLiteral("failureTitle"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_text->setObjectName(QStringLiteral("failureText"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    // An address contains no place for a line break.
    m_text->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    constexpr int lines = 6;
    m_text->setFixedHeight(m_text->fontMetrics().lineSpacing() * lines);
    m_text->hide();
    m_retry->setObjectName(QStringLiteral("failureRetry"));
    m_details->setObjectName(QStringLiteral("failureDetails"));
    m_details->setCheckable(true);
    m_copy->setObjectName(QStringLiteral("failureCopy"));
    m_close->setObjectName(QStringLiteral("failureClose"));

    createLayout();
    connect(m_retry, &QPushButton::clicked, this, [this] { emit retryWanted(m_kind, m_guid); });
    connect(m_details, &QPushButton::toggled, m_text, &QWidget::setVisible);
    connect(m_copy, &QPushButton::clicked, this, &FailureBox::copy);
    connect(m_close, &QPushButton::clicked, this, &QWidget::hide);
    retranslate();
    hide();
}

void FailureBox::createLayout()
{
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(m_retry);
    buttons->addWidget(m_details);
    buttons->addWidget(m_copy);
    buttons->addWidget(m_close);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    layout->addLayout(buttons);
}

void FailureBox::retranslate()
{
    m_title->setText(tr("“%1” could not be downloaded: %2").arg(m_name, m_failure.causeText()));
    m_text->setAccessibleName(tr("Why the download failed"));
    m_retry->setText(tr("Try again"));
    m_details->setText(tr("Details"));
    m_copy->setText(tr("Copy"));
    m_close->setText(tr("Close"));
}

void FailureBox::showFailure(ECfgItemType kind, const QString& guid, const QString& name,
                             const STransferFailure& failure)
{
    m_kind = kind;
    m_guid = guid;
    m_name = name;
    m_failure = failure;
    m_text->setPlainText(failure.m_qsDetails);
    retranslate();
    show();
}

void FailureBox::forget(ECfgItemType kind, const QString& guid)
{
    if (kind == m_kind && guid == m_guid)
        hide();
}

void FailureBox::copy() const
{
    QGuiApplication::clipboard()->setText(m_text->toPlainText());
}

void FailureBox::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
