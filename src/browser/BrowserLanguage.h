// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"

#include <QString>
#include <QStringList>

/// The languages of the library's own texts. A host calls install() once it has an application
/// object, and again whenever the user changes the language: open lists change at once.
/// GUI thread only.
class MVBROWSER_EXPORT BrowserLanguage
{
public:
    BrowserLanguage() = delete;

    /// Returns the languages as QLocale names: "en" (built in), "de", "es", "fr", "ja", "zh_CN".
    static QStringList languages();

    /// Shows the texts in `language`, a locale name such as "de" or "de_AT". Returns false, and
    /// shows English, if there is no translation.
    static bool install(const QString& language);
};
