#pragma once

#include <QString>

/// The language of all that the program shows: its own texts, the library's and Qt's, and the way
/// numbers and dates are written.
class AppLanguage
{
public:
    AppLanguage() = delete;

    /// One of BrowserLanguage::languages(). Open windows change at once.
    static void install(const QString& language);
    /// The language's name in itself, for menus.
    static QString ownName(const QString& language);
};
