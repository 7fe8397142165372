// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestIcons.h"

#include "support/CatalogueFiles.h"

void TestIcons::hide(const QString& home)
{
    // The theme that Qt uses without a desktop. Of several with its name the user's own comes
    // first.
    CatalogueFiles::write(home + QStringLiteral("/.icons/hicolor/index.theme"),
                          "[Icon Theme]\nName=hicolor\nDirectories=\n");
}
