// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/SearchWords.h"

#include <algorithm>

SearchWords::SearchWords(const QString& text)
    : m_words(folded(text).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts))
{
}

bool SearchWords::matches(const QString& name) const
{
    if (m_words.isEmpty())
        return true;
    const QString searched = folded(name);
    return std::all_of(m_words.cbegin(), m_words.cend(),
                       [&searched](const QString& word) { return searched.contains(word); });
}

QString SearchWords::folded(const QString& text)
{
    QString letters;
    const QString decomposed = text.normalized(QString::NormalizationForm_KD);
    for (const QChar letter : decomposed) {
        if (letter.category() != QChar::Mark_NonSpacing)
            letters.append(letter);
    }
    return letters.toCaseFolded();
}
