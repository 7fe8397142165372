// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SampleWorld.h"

#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "download/DownloadPacing.h"
#include "host/HostSettings.h"
#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QTest>

#include <chrono>

namespace {

const QString samples = QStringLiteral(MV_SAMPLES);
const QString publishedFiles = samples + QStringLiteral("/server/config");

void copyTree(const QString& from, const QString& to)
{
    const QStringList files = CatalogueFiles::filesBelow(from);
    for (const QString& file : files)
        CatalogueFiles::write(to + QLatin1Char('/') + file,
                              CatalogueFiles::read(from + QLatin1Char('/') + file));
}

QString kindFolder(const SCfg_Item* item)
{
    const QString folder = MVThemeMgr::init()->Path_resource_Dir(
        MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config, item->m_eType);
    return QFileInfo(folder).fileName();
}

} // namespace

SampleWorld::SampleWorld()
    : m_root(TestHome::path() + QStringLiteral("/root"))
    , m_server([this](HttpExchange& exchange) { serve(exchange); })
{
    QString error;
    if (!loadHostSettings(samples + QStringLiteral("/settings.ini"), &error))
        qFatal("%s", qPrintable(error));
    HostSettings& settings = hostSettings();
    settings.dataLocation = TestHome::path() + QStringLiteral("/data");
    settings.productParams.insert(QStringLiteral("url_themeRootDir"),
                                  m_server.url(QStringLiteral("/")));
    settings.productParams.insert(QStringLiteral("url_slidershow"), QStringLiteral("more"));
    settings.downloadRetries = 0;
    DownloadPacing::setStep(std::chrono::milliseconds(1));

    const QString tree = m_root + QStringLiteral("/Themes");
    copyTree(samples + QStringLiteral("/server/ResourceConfig"),
             tree + QStringLiteral("/ResourceConfig"));
    copyTree(publishedFiles, tree + QStringLiteral("/config/PQD/Download"));
    copyTree(samples + QStringLiteral("/server/display"),
             tree + QStringLiteral("/display/PQD/Download"));
    MVThemeMgr::init()->setResourceSaveRootPath(m_root);
    MVThemeMgr::init()->load(false);
}

SampleWorld::~SampleWorld()
{
    m_answer = NotFound; // otherwise the server would wait for its stalled connection
}

void SampleWorld::lose(const SCfg_Item* item)
{
    m_lost.append(folder(item));
    QDir(m_root + QStringLiteral("/Themes/config/PQD/Download/") + folder(item))
        .removeRecursively();
}

void SampleWorld::restore()
{
    for (const QString& folder : qAsConst(m_lost))
        copyTree(publishedFiles + QLatin1Char('/') + folder,
                 m_root + QStringLiteral("/Themes/config/PQD/Download/") + folder);
    m_lost.clear();
}

bool SampleWorld::isBuiltIn(const SCfg_Item* item)
{
    return QFileInfo::exists(samples + QStringLiteral("/installed/Resource/") + folder(item));
}

QString SampleWorld::folder(const SCfg_Item* item)
{
    return kindFolder(item) + QLatin1Char('/') + item->m_qsGUID;
}

void SampleWorld::serve(HttpExchange& exchange) const
{
    if (m_answer == NotFound) {
        exchange.answer(HttpAnswer(404).body("none"));
        return;
    }
    // The first 10 percent of a download are for the item's config, the rest for its only file.
    constexpr int size = 9000;
    constexpr int sent = size * (stalledPercent - 10) / 90;
    exchange.send(HttpAnswer(200)
                      .field("Content-Length", QByteArray::number(size))
                      .bareBody(QByteArray(sent, 'x'))
                      .bytes());
    while (m_answer == Stalls)
        exchange.pause(std::chrono::milliseconds(1));
    exchange.reset();
}

namespace {

/// Discards the requests for tool tips, which would cover the list.
class NoToolTips : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        return event->type() == QEvent::ToolTip || QObject::eventFilter(watched, event);
    }
};

} // namespace

SampleList::SampleList(EUIItemType type, const QSize& size)
    : m_window(std::make_unique<QWidget>())
    , m_view(new mvThemelistview(m_window.get()))
    , m_noToolTips(std::make_unique<NoToolTips>())
{
    qApp->installEventFilter(m_noToolTips.get());
    m_view->setUIItemType(type);
    m_view->initData({}, false);
    m_view->reapplyFilter(999, {});
    m_view->resize(size);
    m_window->resize(size);
    // Beside the window, so that the list does not open below the cursor.
    const auto moveAway = [this] {
        QCursor::setPos(m_window->geometry().bottomRight() + QPoint(50, 50));
    };
    moveAway();
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        qFatal("the window does not show");
    moveAway(); // the window may have been placed
    QCoreApplication::processEvents();
}

SampleList::~SampleList() = default;

int SampleList::count() const
{
    return m_view->model()->rowCount();
}

MVThemeItemWdg* SampleList::cell(int row) const
{
    const QVariant widget = m_view->model()->index(row, 0).data(UIItemRole_Widget);
    return qobject_cast<MVThemeItemWdg*>(widget.value<QObject*>());
}

void SampleList::hover(const MVThemeItemWdg* cell)
{
    QCursor::setPos(cell->mapToGlobal(cell->rect().center()));
    QCoreApplication::processEvents();
}

QWidget* partOf(const MVThemeItemWdg* cell, const char* name)
{
    auto* const part = cell->findChild<QWidget*>(QString::fromLatin1(name));
    if (!part)
        qFatal("a cell has no %s", name);
    return part;
}
