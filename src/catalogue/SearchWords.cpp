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
    QString letters = text.normalized(QString::NormalizationForm_KD);
    letters.erase(std::remove_if(letters.begin(), letters.end(),
                                 [](QChar c) { return c.category() == QChar::Mark_NonSpacing; }),
                  letters.end());
    return letters.toCaseFolded();
}
