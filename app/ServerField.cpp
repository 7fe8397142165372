// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ServerField.h"

#include "ServerAddress.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTimer>
#include <QVBoxLayout>

ServerField::ServerField(const QString& name, QWidget* parent)
    : QWidget(parent)
    , m_edit(new QLineEdit(this))
    , m_found(new QLabel(this))
    , m_typing(new QTimer(this))
    , m_probe(new ServerProbe(this))
{
    m_edit->setObjectName(name);
    m_edit->setInputMethodHints(Qt::ImhUrlCharactersOnly);
    m_edit->setPlaceholderText(QStringLiteral("https://"));
    m_found->setObjectName(name + QStringLiteral("Found"));
    m_found->setTextFormat(Qt::PlainText);
    m_found->setWordWrap(true);
    constexpr int lines = 2; // so that nothing moves when an answer comes
    m_found->setMinimumHeight(lines * m_found->fontMetrics().lineSpacing());
    m_found->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit);
    layout->addWidget(m_found);
    setFocusProxy(m_edit);
    constexpr int pauseMs = 400;
    m_typing->setSingleShot(true);
    m_typing->setInterval(pauseMs);
    connect(m_edit, &QLineEdit::textChanged, this, &ServerField::startOver);
    connect(m_typing, &QTimer::timeout, this, &ServerField::ask);
    connect(m_probe, &ServerProbe::finished, this, &ServerField::take);
    retranslate();
}

void ServerField::setText(const QString& text)
{
    m_edit->setText(text);
}

QString ServerField::address() const
{
    return ServerAddress::normalized(m_edit->text());
}

void ServerField::startOver()
{
    m_probe->cancel();
    m_result.reset();
    m_isAsking = !address().isEmpty();
    if (m_isAsking)
        m_typing->start();
    else
        m_typing->stop();
    retranslate();
    emit changed();
}

void ServerField::ask()
{
    m_probe->start(address());
}

void ServerField::take(const ServerProbe::Result& result)
{
    m_isAsking = false;
    m_result = result;
    retranslate();
    emit changed();
}

void ServerField::retranslate()
{
    m_edit->setAccessibleName(tr("Address of the resource server"));
    m_found->setText(verdict());
    m_edit->setAccessibleDescription(m_found->text());
}

QString ServerField::verdict() const
{
    if (m_edit->text().trimmed().isEmpty())
        return {};
    if (address().isEmpty())
        return tr("This is not an address such as https://example.com/resources/");
    if (!m_result)
        return tr("Asking %1…").arg(address());
    if (m_result->failure.m_eCause == eFailure_NotOnServer
        || (!m_result->isFound && !m_result->failure.isFailure()))
        return tr("The server answers, but has no resources at this address");
    if (!m_result->isFound)
        return tr("Nothing found: %1").arg(m_result->failure.causeText());
    if (!m_result->published.isValid())
        return tr("Found: catalogue %1").arg(m_result->version);
    const QString date =
        QLocale().toString(m_result->published.toLocalTime().date(), QLocale::LongFormat);
    return tr("Found: catalogue %1, published on %2").arg(m_result->version, date);
}

void ServerField::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
