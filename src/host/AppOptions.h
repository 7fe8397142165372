#pragma once

#include "host/MvHostExport.h"

#include <QString>

/// The application's options: its working folder and the edition it is.
///
/// Reads hostSettings(); every operation may be called from every thread. The instance is alive
/// until the process is gone.
class MVHOST_EXPORT AppOptions
{
public:
    static AppOptions* instance();

    /// Folder for the application's working data, without a trailing slash.
    QString appDataPath() const;

    /// Creates the folder and its missing parents. True if it exists now; false for an empty path
    /// and where a part of the path is a file or cannot be created.
    bool ensureDirExists(const QString& path) const;

    /// Return whether the product is that partner edition; if it is none, it is the standard
    /// edition.
    bool isPartnerEdition1() const;
    bool isPartnerEdition2() const;
    bool isPartnerEdition3() const;
    bool isPartnerEdition4() const;
    bool isPartnerEdition5() const;

private:
    AppOptions() = default;
};
