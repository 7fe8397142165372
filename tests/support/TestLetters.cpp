// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestLetters.h"

#include "support/TestFonts.h"

#include <QDir>
#include <QRawFont>
#include <QSet>
#include <QTest>

#include <string>

namespace {

QSet<uint> lettersOfTheFonts()
{
    QSet<uint> letters;
    const QDir folder(TestFonts::folder(), QStringLiteral("*.ttf"));
    const QFileInfoList files = folder.entryInfoList(QDir::Files);
    for (const QFileInfo& file : files) {
        constexpr qreal anySize = 12;
        const QRawFont font(file.filePath(), anySize);
        for (uint letter = ' '; letter <= QChar::LastValidCodePoint; ++letter) {
            if (font.supportsCharacter(letter))
                letters.insert(letter);
        }
    }
    return letters;
}

} // namespace

QString lettersWithoutFont(const QString& text)
{
    static const QSet<uint> known = lettersOfTheFonts();
    QString lacked;
    const std::u32string letters = text.toStdU32String();
    for (const char32_t letter : letters) {
        if (QChar::isPrint(letter) && !known.contains(letter))
            lacked += QString::fromUcs4(&letter, 1);
    }
    return lacked;
}

void verifyHasFont(const QString& text)
{
    const QString lacked = lettersWithoutFont(text);
    const QString message =
        QStringLiteral("the fonts of the tests lack \"%1\" of \"%2\": run script/bootstrap fonts, "
                       "then tests/support/fonts/make-fonts, and commit what it wrote")
            .arg(lacked, text);
    QVERIFY2(lacked.isEmpty(), qPrintable(message));
}
