// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AppLanguage.h"

#include "browser/BrowserLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

/// Replaces the translator that this call installed before. The application owns it.
void installTranslator(QTranslator*& current, const QString& file, const QString& folder)
{
    delete current;
    current = new QTranslator(QCoreApplication::instance());
    if (current->load(file, folder))
        QCoreApplication::installTranslator(current);
}

} // namespace

void AppLanguage::install(const QString& language)
{
    static QTranslator* own = nullptr;
    static QTranslator* qt = nullptr;
    QLocale::setDefault(QLocale(language));
    installTranslator(qt, QStringLiteral("qtbase_") + language, qtTranslations());
    installTranslator(own, QStringLiteral("mveditor_") + language,
                      QStringLiteral(":/mveditor/translations"));
    BrowserLanguage::install(language);
}

QString AppLanguage::qtTranslations()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
}

QString AppLanguage::ownName(const QString& language)
{
    if (language == QLatin1String("en"))
        return QStringLiteral("English");
    QString name = QLocale(language).nativeLanguageName();
    name[0] = name.at(0).toUpper();
    return name;
}
