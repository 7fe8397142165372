#pragma once

#include "records/MvResourceExport.h"

#include <QString>

/// Content of one version file.
struct MVRESOURCE_EXPORT SCatalogueVersion
{
    QString m_qsVersion;     ///< dotted decimal, such as "1.0.2"
    QString m_qsVer_Display; ///< MD5 of the display catalogue, lower case
    QString m_qsVer_config;  ///< MD5 of the config catalogue, lower case
    bool bLoadXMLOK = false; ///< the file was read and well-formed
    bool m_hasVersion = true;

    /// Returns the version without its dots, as a number; 0 for a text that is none. A number
    /// beyond the range of int is the largest one, so that it counts as newer than any real one.
    int number() const;
    /// Returns whether both checksums are known.
    bool isComplete() const { return !m_qsVer_config.isEmpty() && !m_qsVer_Display.isEmpty(); }
    /// Returns what stands for a version file that is missing or cannot be read.
    static SCatalogueVersion none();
};
