// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserLanguage.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <memory>

// A program takes only what it uses from a static library. The macro needs the global namespace.
static void initTranslations()
{
    Q_INIT_RESOURCE(mvbrowser_translations);
}

namespace {

std::unique_ptr<QTranslator>& theTranslator()
{
    static std::unique_ptr<QTranslator> translator;
    return translator;
}

void destroyTranslator()
{
    theTranslator().reset();
}

} // namespace

QStringList BrowserLanguage::languages()
{
    return {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("es"),
            QStringLiteral("fr"), QStringLiteral("ja"), QStringLiteral("zh_CN")};
}

bool BrowserLanguage::install(const QString& language)
{
    static bool registered = false;
    if (!registered) {
        initTranslations();
        qAddPostRoutine(&destroyTranslator);
    }
    registered = true;

    const QLocale locale(language);
    auto translator = std::make_unique<QTranslator>();
    const bool found = translator->load(locale, QStringLiteral("mvbrowser"), QStringLiteral("_"),
                                        QStringLiteral(":/mvbrowser/translations"));
    if (!found)
        translator.reset();
    else
        QCoreApplication::installTranslator(translator.get());
    // When destroyed, the previous translator removes itself from the application.
    std::swap(theTranslator(), translator);
    return found || locale.language() == QLocale::English;
}
