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
    /// Returns the object of this process.
    static AppOptions* instance();

    /// Returns the folder for the application's working data, without a trailing slash.
    QString appDataPath() const;

    /// Creates the folder and its missing parents. Returns whether it now exists; false for an
    /// empty path and if a component of the path is a file or cannot be created.
    bool ensureDirExists(const QString& path) const;

    /// Returns whether the product is partner edition 1. A product of no partner edition is the
    /// standard edition.
    bool isPartnerEdition1() const;
    /// See isPartnerEdition1().
    bool isPartnerEdition2() const;
    /// See isPartnerEdition1().
    bool isPartnerEdition3() const;
    /// See isPartnerEdition1().
    bool isPartnerEdition4() const;
    /// See isPartnerEdition1().
    bool isPartnerEdition5() const;

private:
    AppOptions() = default;
};
