// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Reads a config catalogue, a display catalogue and a theme's config, as sent by a server, then
// asks what every item needs. The theme's config is the file "/Themes/t.xml".

#include "catalogue/NoneEntry.h"
#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "Parts.h"
#include "Require.h"
#include "WriteGuard.h"

namespace {

constexpr int maxNeeded = 10000;

class CatalogueTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override;

private:
    static MVThemeMgr& manager() { return CatalogueWorld::manager(); }
    static QStringList loaded();
    static void checkShownItems();
    static QStringList needed(SCfg_Item& item);

    CatalogueWorld m_world;
};

void CatalogueTarget::run(const QByteArray& input)
{
    const Parts parts(input);
    m_world.renewRoot();
    CatalogueFiles::write(m_world.configXml(), parts.at(0));
    CatalogueFiles::write(m_world.displayXml(), parts.at(1));
    CatalogueFiles::write(m_world.downloaded("config", "Themes", QStringLiteral("t.xml")),
                          parts.at(2));
    const WriteGuard guard({m_world.root(), m_world.data()});
    const QStringList first = loaded();
    checkShownItems();
    require(loaded() == first, "a catalogue reads the same every time");
}

/// Describes the catalogue after reading, and what each item needs.
QStringList CatalogueTarget::loaded()
{
    manager().load(true);
    const QVector<SCfg_Item*> items = CatalogueWorld::items();
    QStringList texts;
    for (SCfg_Item* item : items) {
        const QStringList files = needed(*item);
        const QStringList again = needed(*item);
        require(again == files, "an item needs the same every time",
                files.join(QLatin1Char('\n')) + QStringLiteral("\nthen\n")
                    + again.join(QLatin1Char('\n')));
        texts.append(CatalogueWorld::described(*item));
        texts += files;
    }
    return texts;
}

QStringList CatalogueTarget::needed(SCfg_Item& item)
{
    QVector<SFileInfo*> records;
    manager().getNeedDownLoadFiles(&item, records);
    require(records.size() <= maxNeeded, "an item needs at most 10,000 files", item.m_qsGUID);
    QStringList files;
    for (const SFileInfo* record : qAsConst(records)) {
        require(!record->m_qsFile.isEmpty(), "a file that is needed has a place", record->m_qsUrl);
        files.append(record->m_qsFile);
    }
    return files;
}

/// Requires every shown item to be in the config catalogue, except for the "none" entry.
void CatalogueTarget::checkShownItems()
{
    const MVThemeMgr::SResourceXML& shown = manager().getDisplayXML();
    for (const auto* list : {&shown.vecFilter, &shown.vecTransition, &shown.vecMotion,
                             &shown.vecTheme, &shown.vecBgMaterial}) {
        for (const SCfg_Item& item : *list) {
            const bool isKnown = manager().findItemByIDFromConfig(item.m_eType, item.m_qsGUID);
            require(isKnown || isNoneEntry(item), "the config catalogue knows what is shown",
                    item.m_qsGUID);
        }
    }
}

} // namespace

MV_FUZZ_TARGET(CatalogueTarget, QCoreApplication)
