// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "model/ResourceCatalogue.h"

#include "catalogue/MVThemeMgr.h"
#include "download/ResourceEvents.h"

#include <QMetaType>

namespace {

constexpr int saveDelayMs = 500; // one write for marks that are set one after the other

} // namespace

ResourceCatalogue::ResourceCatalogue(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<ResourceCatalogue::Outcome>("ResourceCatalogue::Outcome");
    connect(&m_update, &CatalogueUpdate::phaseChanged, this, [this] {
        emit phaseChanged();
        emit progressChanged();
    });
    connect(&m_update, &CatalogueUpdate::progressed, this, &ResourceCatalogue::progressChanged);
    connect(&m_update, &CatalogueUpdate::appUpdateNeeded, this,
            &ResourceCatalogue::appUpdateNeeded);
    connect(&m_update, &CatalogueUpdate::contentArrived, this, &ResourceCatalogue::reload);
    connect(&m_update, &CatalogueUpdate::finished, this, &ResourceCatalogue::endCheck);
    connect(ResourceEvents::instance(), &ResourceEvents::downloadEnded, this,
            &ResourceCatalogue::reloadLater, Qt::QueuedConnection);
    m_save.setSingleShot(true);
    m_save.setInterval(saveDelayMs);
    connect(&m_save, &QTimer::timeout, this, &ResourceCatalogue::saveFavourites);
    const auto saveSoon = qOverload<>(&QTimer::start);
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    connect(catalogue, &MVThemeMgr::sigThemesCollected, &m_save, saveSoon);
    connect(catalogue, &MVThemeMgr::sigFilterCollected, &m_save, saveSoon);
    connect(catalogue, &MVThemeMgr::sigBgMaterialCollected, &m_save, saveSoon);
}

ResourceCatalogue::~ResourceCatalogue()
{
    if (m_save.isActive())
        MVThemeMgr::init()->saveFavourites(nullptr);
}

bool ResourceCatalogue::open(const QString& downloadFolder)
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->setResourceSaveRootPath(downloadFolder);
    catalogue->load(true);
    return !catalogue->getDisplayXML().isEmpty();
}

bool ResourceCatalogue::reload()
{
    saveFavourites(); // loading reads them from their files
    m_isReloadDue = !MVThemeMgr::init()->tryReload();
    if (!m_isReloadDue)
        emit reloaded();
    return !m_isReloadDue;
}

void ResourceCatalogue::reloadLater()
{
    if (m_isReloadDue)
        reload();
}

void ResourceCatalogue::saveFavourites()
{
    m_save.stop();
    QString reason;
    if (!MVThemeMgr::init()->saveFavourites(&reason))
        emit favouritesNotSaved(reason);
}

ResourceCatalogue::Phase ResourceCatalogue::phase() const
{
    switch (m_update.phase()) {
    case CatalogueUpdate::Phase::Idle:
        break;
    case CatalogueUpdate::Phase::Waiting:
        return Waiting;
    case CatalogueUpdate::Phase::Catalogue:
        return Checking;
    case CatalogueUpdate::Phase::Previews:
        return FetchingPreviews;
    }
    return Idle;
}

int ResourceCatalogue::progress() const
{
    const SUpdateProgress& progress = m_update.progress();
    return progress.m_nFiles > 0 ? 100 * progress.m_nFilesDone / progress.m_nFiles : -1;
}

void ResourceCatalogue::endCheck(const SCatalogueUpdateResult& result)
{
    switch (result.m_eEnd) {
    case eCatalogueUpdate_Complete:
        emit checkEnded(Complete, QString());
        break;
    case eCatalogueUpdate_PreviewsMissing:
        emit checkEnded(PreviewsMissing, result.reason());
        break;
    case eCatalogueUpdate_Failed:
        emit checkEnded(Failed, result.reason());
        break;
    case eCatalogueUpdate_Cancelled:
        emit checkEnded(Cancelled, QString());
        break;
    }
}
