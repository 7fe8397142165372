#pragma once

#include "records/ECfgItemType.h"

#include <QString>

class LintContext;

/// Helpers of the checks of catalogues and of themes.
namespace GuidChecks {

/// Place at which a GUID was found.
struct Place
{
    QString file;
    int line;
    QString item;            ///< that it stands in
    const char* unknownCode; ///< code of the finding when nothing has that GUID
};

/// Tells where the "none" entry belongs.
extern const QString noneAdvice;

/// Reports a GUID that is malformed or not in capitals; true if it is neither.
bool isWellFormed(LintContext& context, const QString& guid, const QString& file, int line);

/// Reports a GUID that no item of the wanted kind has: with the reason why.
void reportUnknown(LintContext& context, const Place& place, ECfgItemType wanted,
                   const QString& guid);

} // namespace GuidChecks
