// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QString>

/// The application's options: its working folder and its edition.
///
/// Reads hostSettings(); all functions may be called from any thread. The instance exists until the
/// process ends.
class MVHOST_EXPORT AppOptions
{
public:
    static AppOptions* instance();

    /// Returns the folder for the application's working data, without a trailing slash.
    QString appDataPath() const;

    /// Creates the folder and its missing parents. Returns whether it now exists; false for an
    /// empty path and if a component of the path is a file or cannot be created.
    bool ensureDirExists(const QString& path) const;

    /// Return whether the product is that partner edition; if it is neither, it is the standard
    /// edition.
    bool isPartnerEdition1() const;
    bool isPartnerEdition2() const;
    bool isPartnerEdition3() const;
    bool isPartnerEdition4() const;
    bool isPartnerEdition5() const;

private:
    AppOptions() = default;
};
