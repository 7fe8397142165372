// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "lint/PictureChecks.h"

#include "lint/LintContext.h"
#include "tree/PictureFault.h"
#include "tree/Placeholders.h"

namespace PictureChecks {

bool isPicture(LintContext& context, const QString& file, const QString& item)
{
    const QString fault = PictureFault::of(context.tree().absolute(file));
    // Several entries may name it.
    if (!fault.isEmpty() && context.isFirstLook(file + QStringLiteral("\nformat")))
        context.report("picture", file, 0, item, fault,
                       QStringLiteral("recreate the picture, or give it the suffix of its "
                                      "format"));
    return fault.isEmpty();
}

void warnOfPlaceholder(LintContext& context, const QString& file, const QString& item)
{
    if (Placeholders::isUntouched(context.tree().absolute(file)))
        context.warn("placeholder", file, 0, item,
                     QStringLiteral("is still the placeholder that the item began with"),
                     QStringLiteral("put a picture of the item in its place before users see it"));
}

} // namespace PictureChecks
