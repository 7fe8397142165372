// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Reads the three favourites files, marks the GUID that follows them, saves and reads again.

#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "Parts.h"
#include "Require.h"
#include "WriteGuard.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

const char* const collectFiles[] = {"ThemeCollect", "FilterCollect", "BgMaterialCollect"};
constexpr int fileCount = 3;
constexpr int listedCount = 2; // the marks of backgrounds are queried one by one

class FavouritesTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override;

private:
    static MVThemeMgr& manager() { return CatalogueWorld::manager(); }
    static QStringList marksIn(const QByteArray& content);
    static void read();
    static void mark(const QString& guid);
    static QStringList marks(int file);
    void checkSaved(int file, const QByteArray& original, const QString& guid) const;
    void checkDamaged(int file, const QByteArray& original) const;

    CatalogueWorld m_world;
};

void FavouritesTarget::run(const QByteArray& input)
{
    const Parts parts(input);
    const QString guid = QString::fromUtf8(parts.at(fileCount));
    m_world.renewFavourites();
    for (int i = 0; i < fileCount; ++i)
        CatalogueFiles::write(m_world.collectFile(collectFiles[i]), parts.at(i));
    const WriteGuard guard({m_world.data()});
    read();
    for (int i = 0; i < listedCount; ++i)
        require(marks(i) == marksIn(parts.at(i)), "the marks of a file are those that it holds");

    mark(guid);
    QString error;
    require(manager().saveFavourites(&error), "what has been marked can be saved", error);
    for (int i = 0; i < fileCount; ++i) {
        checkDamaged(i, parts.at(i));
        checkSaved(i, parts.at(i), guid);
    }
    read();
    for (int i = 0; i < fileCount; ++i) {
        const QByteArray saved = CatalogueFiles::read(m_world.collectFile(collectFiles[i]));
        require(i >= listedCount || marks(i) == marksIn(saved), "what was saved reads the same");
        require(manager().saveFavourites(&error)
                    && marksIn(CatalogueFiles::read(m_world.collectFile(collectFiles[i])))
                        == marksIn(saved),
                "saving what was read changes no mark", error);
    }
}

/// Sorted here, since Qt does not sort keys that contain a NUL; empty unless a JSON object.
QStringList FavouritesTarget::marksIn(const QByteArray& content)
{
    const QJsonObject object = QJsonDocument::fromJson(content).object();
    QStringList guids;
    for (auto mark = object.constBegin(); mark != object.constEnd(); ++mark) {
        if (mark->toBool(false))
            guids.append(mark.key());
    }
    guids.sort();
    return guids;
}

void FavouritesTarget::read()
{
    manager().readThemeCollect();
    manager().readFilterCollect();
    manager().readBgMaterialCollect();
}

void FavouritesTarget::mark(const QString& guid)
{
    SCfg_Item item;
    item.m_qsGUID = guid;
    item.m_bCollected = true;
    manager().setThemesCollected(&item);
    manager().setFilterCollected(&item);
    manager().setBgMaterialCollected(&item);
}

/// Returns what the catalogue has read from one of the first files.
QStringList FavouritesTarget::marks(int file)
{
    QStringList guids = manager().favourites(file == 0 ? eCfgItem_Theme : eCfgItem_Filter);
    guids.sort();
    return guids;
}

/// Requires the file to hold the earlier marks and the new one, and nothing else.
void FavouritesTarget::checkSaved(int file, const QByteArray& original, const QString& guid) const
{
    QStringList expected = marksIn(original);
    if (!expected.contains(guid))
        expected.append(guid);
    expected.sort();
    const QStringList saved =
        marksIn(CatalogueFiles::read(m_world.collectFile(collectFiles[file])));
    require(saved == expected, "a saved file holds the earlier marks and the new one",
            saved.join(QLatin1Char(' ')) + QStringLiteral(" instead of ")
                + expected.join(QLatin1Char(' ')));
}

/// Requires an invalid file to be kept aside, and nothing else.
void FavouritesTarget::checkDamaged(int file, const QByteArray& original) const
{
    const QString kept = m_world.collectFile(collectFiles[file]) + QStringLiteral(".damaged-1");
    const bool isDamaged = !original.isEmpty() && !QJsonDocument::fromJson(original).isObject();
    require(QFile::exists(kept) == isDamaged, "a file is kept aside if it is damaged");
    require(CatalogueFiles::read(kept) == (isDamaged ? original : QByteArray()),
            "what is kept aside is what was there");
}

} // namespace

MV_FUZZ_TARGET(FavouritesTarget, QCoreApplication)
