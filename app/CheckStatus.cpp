#include "CheckStatus.h"

#include "BackgroundCheck.h"
#include "catalogue/MVThemeMgr.h"

#include <QDateTime>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>

CheckStatus::CheckStatus(const BackgroundCheck& check, QWidget* parent)
    : QWidget(parent)
    , m_check(check)
    , m_label(new QLabel(this))
    , m_busy(new QProgressBar(this))
{
    m_label->setObjectName(QStringLiteral("checkStatus"));
    m_label->setTextFormat(Qt::PlainText);
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    constexpr int busyWidth = 90;
    m_busy->setFixedSize(busyWidth, m_label->fontMetrics().height() / 2);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_busy);
    layout->addWidget(m_label);
    connect(&check, &BackgroundCheck::changed, this, &CheckStatus::refresh);
    refresh();
}

QString CheckStatus::text() const
{
    return m_label->text();
}

void CheckStatus::refresh()
{
    const bool busy = m_check.phase() != BackgroundCheck::Phase::Idle;
    m_busy->setVisible(busy);
    QString text;
    if (m_check.phase() == BackgroundCheck::Phase::Catalogue)
        text = tr("Checking for new resources…");
    else if (m_check.phase() == BackgroundCheck::Phase::Previews)
        text = tr("%1. Fetching previews…").arg(outcome());
    else if (m_check.isRefused())
        text = tr("Start the program again to check again");
    else if (m_check.hasResult())
        text = outcome();
    m_label->setText(text);
    const QString reason = m_check.hasResult() ? m_check.result().m_qsReason : QString();
    m_label->setToolTip(reason);
    m_label->setAccessibleDescription(reason);
    m_busy->setAccessibleName(text);
}

QString CheckStatus::outcome() const
{
    switch (m_check.result().m_eEnd) {
    case eCatalogueCheck_Changed:
        return tr("Catalogue updated") + previewsText();
    case eCatalogueCheck_Current:
        return tr("Up to date") + previewsText();
    case eCatalogueCheck_ServerNewer:
        return tr("The server has resources that need a newer application");
    case eCatalogueCheck_ServerOlder:
        return tr("The server's catalogue is older than this application");
    case eCatalogueCheck_Unreachable:
        return tr("Offline: catalogue of %1").arg(catalogueDate());
    case eCatalogueCheck_Rejected:
        return tr("The server's catalogue was refused: catalogue of %1").arg(catalogueDate());
    case eCatalogueCheck_Cancelled:
        return tr("Check cancelled: catalogue of %1").arg(catalogueDate());
    }
    return {};
}

QString CheckStatus::previewsText() const
{
    const SPreviewRunResult& previews = m_check.previews();
    QString text;
    if (previews.m_nFetched > 0)
        text += tr(", %n preview(s) fetched", nullptr, previews.m_nFetched);
    if (previews.m_nFailed > 0)
        text += tr(", %n preview(s) could not be fetched", nullptr, previews.m_nFailed);
    return text;
}

/// Of the file that the catalogue was read from.
QString CheckStatus::catalogueDate()
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    for (const auto tree : {MVThemeMgr::eLoadDir_Download, MVThemeMgr::eLoadDir_Local}) {
        const QFileInfo file(catalogue->Path_resource_xml(tree, MVThemeMgr::eDirTag_Config));
        if (file.isFile())
            return QLocale().toString(file.lastModified().date(), QLocale::LongFormat);
    }
    return tr("no date, none is here");
}

void CheckStatus::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        refresh();
}
