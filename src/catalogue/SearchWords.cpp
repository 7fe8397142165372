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
    const auto isMark = [](QChar letter) { return letter.category() == QChar::Mark_NonSpacing; };
    const auto end = std::remove_if(letters.begin(), letters.end(), isMark);
    letters.truncate(static_cast<int>(end - letters.begin()));
    return letters.toCaseFolded();
}
