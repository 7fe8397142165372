// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QString>

/// Content of one version file.
struct MVRESOURCE_EXPORT SCatalogueVersion
{
    QString m_qsVersion;      ///< dotted decimal, such as "1.0.2"
    QString m_qsVer_Display;  ///< MD5 of the display catalogue, lower case
    QString m_qsVer_config;   ///< MD5 of the config catalogue, lower case
    bool bLoadXMLOK = false;  ///< the file was read and well-formed
    bool m_hasVersion = true; ///< the file has a version

    /// Returns the version without its dots, as a number; 0 for an invalid text. Out-of-range
    /// versions yield the largest int, so that they count as newer than any real one.
    int number() const;
    /// Returns whether both checksums are known.
    bool isComplete() const { return !m_qsVer_config.isEmpty() && !m_qsVer_Display.isEmpty(); }
    /// Returns the value for a version file that is missing or unreadable.
    static SCatalogueVersion none();
};
