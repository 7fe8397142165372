// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"

#include <QString>

class LintContext;

/// Helpers for the checks of catalogues and themes.
namespace GuidChecks {

/// The place at which a GUID was found.
struct Place
{
    QString file;
    int line;
    QString item;            ///< that contains it
    const char* unknownCode; ///< code of the finding if no item has that GUID
};

/// Advice on where the "none" entry belongs.
extern const QString noneAdvice;

/// Reports a GUID that is malformed or not in capitals; returns whether it is well-formed.
bool isWellFormed(LintContext& context, const QString& guid, const QString& file, int line);

/// Reports a GUID that no item of the expected kind has, with the reason.
void reportUnknown(LintContext& context, const Place& place, ECfgItemType wanted,
                   const QString& guid);

} // namespace GuidChecks
