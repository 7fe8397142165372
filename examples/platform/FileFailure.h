// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"

class QSaveFile;
class QString;

/// Describes why a file could not be written.
class FileFailure
{
public:
    FileFailure() = delete;

    /// `url` may be empty: the content did not come from a server.
    static STransferFailure of(const QSaveFile& file, const QString& url);
};
