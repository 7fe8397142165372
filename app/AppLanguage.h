// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The language of everything the program shows: its own texts, the library's and Qt's, and the
/// format of numbers and dates.
class AppLanguage
{
public:
    AppLanguage() = delete;

    /// Installs one of BrowserLanguage::languages(). Open windows change at once.
    static void install(const QString& language);
    /// Returns the language's own name for itself, for menus.
    static QString ownName(const QString& language);
    /// Returns the folder of the translations of Qt's own texts.
    static QString qtTranslations();
};
