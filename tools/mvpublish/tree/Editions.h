#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One edition of the product: which version file and which display catalogue it asks for. Editions
/// share files; all share the config catalogue.
struct Edition
{
    QString name;        ///< "standard" or "1" to "5"
    QString versionFile; ///< in the folder ResourceConfig
    QString displayFile; ///< in the folder ResourceConfig
    QString audience; ///< "standard", "aff" or "aff_de": who the display catalogue is written for
};

namespace Editions {

/// The standard edition first.
const QVector<Edition>& all();
/// Null for a name that is no edition's.
const Edition* byName(const QString& name);
/// Every audience once, in the order of all().
QStringList audiences();

/// The folder of the catalogue files in every tree.
inline const QString catalogueFolder = QStringLiteral("ResourceConfig");
inline const QString configFile = QStringLiteral("resource_config.xml");
/// The catalogue files of an installation have one name for all editions.
inline const QString installedVersionFile = QStringLiteral("resource_version.xml");
inline const QString installedDisplayFile = QStringLiteral("resource_display.xml");
/// Key of the names under which an installation's catalogue shows items.
inline const QString installedAudience = QStringLiteral("installed");

} // namespace Editions
