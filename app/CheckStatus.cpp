// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CheckStatus.h"

#include "catalogue/MVThemeMgr.h"
#include "download/CatalogueUpdate.h"
#include "ToolTip.h"

#include <QDateTime>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>

CheckStatus::CheckStatus(const CatalogueUpdate& check, QWidget* parent)
    : QWidget(parent)
    , m_check(check)
    , m_label(new QLabel(this))
    , m_busy(new QProgressBar(this))
{
    m_label->setObjectName(QStringLiteral("checkStatus"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setMinimumWidth(1); // the tool tip has the whole text
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    constexpr int busyWidth = 90;
    m_busy->setFixedSize(busyWidth, m_label->fontMetrics().height() / 2);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_busy);
    layout->addWidget(m_label);
    connect(&check, &CatalogueUpdate::phaseChanged, this, &CheckStatus::refresh);
    connect(&check, &CatalogueUpdate::progressed, this, &CheckStatus::showProgress);
    refresh();
}

void CheckStatus::makeRoomFor(const QString& message)
{
    const int gap = message.isEmpty() ? 0 : m_label->fontMetrics().height();
    layout()->setContentsMargins(gap, 0, 0, 0);
}

QString CheckStatus::text() const
{
    return m_label->text();
}

void CheckStatus::refresh()
{
    m_busy->setVisible(m_check.isRunning());
    m_busy->setRange(0, 0);
    QString text;
    if (m_check.phase() == CatalogueUpdate::Phase::Catalogue)
        text = tr("Checking for new resources…");
    else if (m_check.phase() == CatalogueUpdate::Phase::Previews)
        text = previewsProgress();
    else if (m_check.isRefused())
        text = tr("Start the program again to check again");
    else if (m_check.hasResult())
        text = outcome();
    m_label->setText(text);
    const QString reasons = details();
    m_label->setToolTip(
        ToolTip::wrapped(reasons.isEmpty() ? text : text + QLatin1Char('\n') + reasons));
    m_label->setAccessibleDescription(reasons);
    m_busy->setAccessibleName(text);
}

void CheckStatus::showProgress(const SUpdateProgress& progress)
{
    if (m_check.phase() != CatalogueUpdate::Phase::Previews)
        return; // two or three small files need no number
    m_busy->setRange(0, progress.m_nFiles);
    m_busy->setValue(progress.m_nFilesDone);
    m_label->setText(previewsProgress());
    m_busy->setAccessibleName(m_label->text());
}

QString CheckStatus::previewsProgress() const
{
    const SUpdateProgress& progress = m_check.progress();
    if (progress.m_nFiles == 0)
        return tr("%1. Fetching previews…").arg(outcome());
    return tr("%1. Previews %2 of %3")
        .arg(outcome(), QLocale().toString(progress.m_nFilesDone),
             QLocale().toString(progress.m_nFiles));
}

QString CheckStatus::outcome() const
{
    const SCatalogueCheckResult& check = m_check.result().m_check;
    const QString cause = STransferFailure::causeText(check.m_eCause);
    switch (check.m_eEnd) {
    case eCatalogueCheck_Changed:
        return tr("Catalogue updated") + previewsText();
    case eCatalogueCheck_Current:
        return tr("Up to date") + previewsText();
    case eCatalogueCheck_ServerNewer:
        return tr("The server has resources that need a newer application");
    case eCatalogueCheck_ServerOlder:
        return tr("The server's catalogue is older than this application");
    case eCatalogueCheck_Unreachable:
        return tr("Offline: %1; %2").arg(cause, catalogueText());
    case eCatalogueCheck_Rejected:
    case eCatalogueCheck_NotStored:
        return tr("Not updated: %1; %2").arg(cause, catalogueText());
    case eCatalogueCheck_Cancelled:
        return tr("Check cancelled; %1").arg(catalogueText());
    }
    return {};
}

QString CheckStatus::previewsText() const
{
    const SPreviewRunResult& previews = m_check.result().m_previews;
    QString text;
    if (previews.m_nFetched > 0)
        text += tr(", %n preview(s) fetched", nullptr, previews.m_nFetched);
    if (previews.m_nFailed > 0)
        text += tr(", %n preview(s) could not be fetched", nullptr, previews.m_nFailed);
    if (previews.m_eEnd == ePreviewRun_NoCatalogue)
        text += tr(", but there is no catalogue to fetch previews for");
    return text;
}

/// Returns why the check, or the previews that followed it, failed, one reason per line.
QString CheckStatus::details() const
{
    constexpr int maxLines = 10;
    const SPreviewRunResult& previews = m_check.result().m_previews;
    QStringList lines{m_check.result().m_check.m_qsReason, previews.m_qsReason};
    for (const STransferFailure& failure : previews.m_vecFailures)
        lines.append(failure.m_qsDetails);
    lines.removeAll(QString());
    return lines.mid(0, maxLines).join(QLatin1Char('\n'));
}

/// Identifies the catalogue in use by the date of the file from which it was read.
QString CheckStatus::catalogueText()
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    for (const auto tree : {MVThemeMgr::eLoadDir_Download, MVThemeMgr::eLoadDir_Local}) {
        const QFileInfo file(catalogue->Path_resource_xml(tree, MVThemeMgr::eDirTag_Config));
        if (file.isFile()) {
            return tr("catalogue of %1")
                .arg(QLocale().toString(file.lastModified().date(), QLocale::LongFormat));
        }
    }
    return tr("no catalogue has been downloaded yet");
}

void CheckStatus::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}
