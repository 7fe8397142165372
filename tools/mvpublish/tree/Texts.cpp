// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/Texts.h"

#include <QRegularExpression>
#include <QVector>

namespace Texts {

namespace {

/// Returns whether the test holds for every code point; an unpaired surrogate counts as one.
template <typename Test>
bool holdsForAll(const QString& text, const Test& test)
{
    for (int i = 0; i < text.size(); ++i) {
        uint code = text.at(i).unicode();
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair) {
            code = QChar::surrogateToUcs4(text.at(i), text.at(i + 1));
            ++i;
        }
        if (!test(code))
            return false;
    }
    return true;
}

} // namespace

bool isShowable(const QString& text)
{
    return holdsForAll(text, [](uint code) {
        const QChar::Category category = QChar::category(code);
        return category != QChar::Other_Control && category != QChar::Other_Surrogate
            && category != QChar::Other_NotAssigned && code != QChar::ReplacementCharacter;
    });
}

QString nameFault(const QString& name)
{
    constexpr int maxLength = 200;
    if (!isShowable(name))
        return QStringLiteral("holds characters that cannot be shown");
    const int length = name.toUcs4().size();
    return length <= maxLength ? QString()
                               : QStringLiteral("has %1 characters, and at most %2 are accepted")
                                     .arg(length)
                                     .arg(maxLength);
}

bool isXml(const QString& text)
{
    constexpr uint noCharacters = 0xfffe; // this one and the next
    return holdsForAll(text, [](uint code) {
        const bool isControl = code < ' ' && code != '\t' && code != '\n' && code != '\r';
        return !isControl && !QChar::isSurrogate(code) && code != noCharacters
            && code != noCharacters + 1;
    });
}

bool isAttributeName(const QString& text)
{
    // Colons and names that begin with "xml" have a meaning in XML itself.
    static const QRegularExpression form(
        QStringLiteral("\\A(?![xX][mM][lL])[\\p{L}_][\\p{L}\\p{Nd}_.\\-]*\\z"));
    return form.match(text).hasMatch();
}

} // namespace Texts
