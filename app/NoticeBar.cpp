// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "NoticeBar.h"

#include "FlowLayout.h"
#include "ToolTip.h"

#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVariant>

namespace {

constexpr int progressSteps = 1000; // bytes do not fit into the bar's numbers

} // namespace

NoticeBar::NoticeBar(const QString& name, QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_action(new QPushButton(this))
    , m_close(new QPushButton(this))
{
    setObjectName(name);
    setProperty("isNotice", true); // for the style sheet
    m_text->setObjectName(name + QStringLiteral("Text"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_progress->setObjectName(name + QStringLiteral("Progress"));
    m_progress->setTextVisible(false);
    constexpr int progressWidth = 160;
    m_progress->setFixedSize(progressWidth, m_text->fontMetrics().height() / 2);
    m_progress->hide();
    m_action->setObjectName(name + QStringLiteral("Action"));
    m_close->setObjectName(name + QStringLiteral("Close"));
    constexpr int leastLetters = 36;
    m_text->setMinimumWidth(leastLetters * m_text->fontMetrics().averageCharWidth());
    m_text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_progress->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* const layout = new FlowLayout(this);
    constexpr int margin = 4;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(m_text);
    layout->addWidget(m_progress);
    layout->setAlignment(m_progress, Qt::AlignVCenter);
    layout->addWidget(m_action);
    layout->addWidget(m_close);
    connect(m_action, &QPushButton::clicked, this, [this] { act(); });
    connect(m_close, &QPushButton::clicked, this, &QWidget::hide);
    hide();
}

void NoticeBar::setTexts(const QString& text, const QString& action)
{
    m_text->setText(text);
    m_action->setText(action);
    m_close->setText(tr("Close"));
    m_progress->setAccessibleName(text);
    setAccessibleName(text);
}

void NoticeBar::setDetails(const QString& details)
{
    m_text->setToolTip(ToolTip::wrapped(details));
    m_text->setAccessibleDescription(details);
}

void NoticeBar::showProgress(qint64 done, qint64 total)
{
    m_progress->setRange(0, total > 0 ? progressSteps : 0);
    m_progress->setValue(total > 0 ? static_cast<int>(done * progressSteps / total) : 0);
    m_progress->show();
}

void NoticeBar::hideProgress()
{
    m_progress->hide();
}

void NoticeBar::setClosable(bool isClosable)
{
    m_close->setVisible(isClosable);
}

void NoticeBar::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
