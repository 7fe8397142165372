// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FailureBox.h"

#include "FlowLayout.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

FailureBox::FailureBox(ItemKey item, QString name, const STransferFailure& failure, QWidget* parent)
    : QFrame(parent)
    , m_item(std::move(item))
    , m_name(std::move(name))
    , m_failure(failure)
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
    m_text->setPlainText(failure.m_qsDetails);
    m_text->hide();
    m_retry->setObjectName(QStringLiteral("failureRetry"));
    m_details->setObjectName(QStringLiteral("failureDetails"));
    m_details->setCheckable(true);
    m_copy->setObjectName(QStringLiteral("failureCopy"));
    m_close->setObjectName(QStringLiteral("failureClose"));

    createLayout();
    connect(m_retry, &QPushButton::clicked, this,
            [this] { emit retryWanted(m_item.kind, m_item.guid); });
    connect(m_details, &QPushButton::toggled, m_text, &QWidget::setVisible);
    connect(m_copy, &QPushButton::clicked, this, &FailureBox::copy);
    connect(m_details, &QPushButton::toggled, this, &FailureBox::resized);
    connect(m_close, &QPushButton::clicked, this, &FailureBox::closed);
    retranslate();
}

void FailureBox::createLayout()
{
    auto* const buttons = new QWidget(this);
    auto* const row = new FlowLayout(buttons);
    for (QPushButton* button : {m_retry, m_details, m_copy, m_close}) {
        button->setParent(buttons);
        row->addWidget(button);
    }
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    layout->addWidget(buttons);
}

void FailureBox::retranslate()
{
    m_title->setText(tr("“%1” could not be downloaded: %2").arg(m_name, m_failure.causeText()));
    m_text->setAccessibleName(tr("Why the download failed"));
    m_retry->setText(tr("Try again"));
    m_details->setText(tr("Details"));
    m_copy->setText(tr("Copy"));
    m_close->setText(tr("Close"));
    setAccessibleName(m_title->text());
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
