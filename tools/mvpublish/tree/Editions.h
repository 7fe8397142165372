// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// One edition of the product: the version file and display catalogue that it requests. Editions
/// share files; all share the config catalogue.
struct Edition
{
    QString name;        ///< "standard" or "1" to "5"
    QString versionFile; ///< in the folder ResourceConfig
    QString displayFile; ///< in the folder ResourceConfig
    QString audience; ///< "standard", "aff" or "aff_de": who the display catalogue is written for
};

namespace Editions {

/// Returns all editions, the standard edition first.
const QVector<Edition>& all();
/// Returns the edition with that name, or null.
const Edition* byName(const QString& name);
/// Returns every audience once, in the order of all().
QStringList audiences();

/// The folder of the catalogue files in every tree.
inline const QString catalogueFolder = QStringLiteral("ResourceConfig");
inline const QString configFile = QStringLiteral("resource_config.xml");
/// The catalogue files of an installation have the same names for all editions.
inline const QString installedVersionFile = QStringLiteral("resource_version.xml");
inline const QString installedDisplayFile = QStringLiteral("resource_display.xml");
/// The key of the names that an installation's catalogue shows.
inline const QString installedAudience = QStringLiteral("installed");

} // namespace Editions
