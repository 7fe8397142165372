#pragma once

#include "records/ECfgItemType.h"

#include <QString>

class LintContext;

/// What checks of catalogues and of themes share.
namespace GuidChecks {

/// Where a GUID stands.
struct Place
{
    QString file;
    int line;
    QString item;            ///< that it stands in
    const char* unknownCode; ///< code of the finding when nothing has that GUID
};

/// Reports a GUID that is malformed or not in capitals; true if it is neither.
bool isWellFormed(LintContext& context, const QString& guid, const QString& file, int line);

/// Reports a GUID that no item of the wanted kind has: with the reason why.
void reportUnknown(LintContext& context, const Place& place, ECfgItemType wanted,
                   const QString& guid);

} // namespace GuidChecks
