// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemFolder.h"

#include "host/WindowsName.h"
#include "records/KindTable.h"
#include "Source.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QStringList>
#include <QVector>

namespace ItemFolder {

namespace {

constexpr int maxBytes = 120;

void append(QString& text, uint code)
{
    const char32_t character = code;
    text.append(QString::fromUcs4(&character, 1));
}

/// Returns the readable part of a name for a folder name, without joiners and directional marks.
QString readablePart(const QString& name)
{
    constexpr uint lastAscii = 0x7f;
    const QVector<uint> codes = name.normalized(QString::NormalizationForm_KD).toLower().toUcs4();
    QString result;
    bool takesMarks = false; // of scripts whose combining marks are more than accents
    bool needsDash = false;
    for (const uint code : codes) {
        if (QChar::category(code) == QChar::Other_Format)
            continue;
        if (QChar::isMark(code)) {
            if (takesMarks)
                append(result, code);
            continue;
        }
        const bool isKept = QChar::isLetterOrNumber(code);
        if (isKept && needsDash && !result.isEmpty())
            result.append(QLatin1Char('-'));
        if (isKept)
            append(result, code);
        takesMarks = isKept && code > lastAscii;
        needsDash = !isKept;
    }
    return result.normalized(QString::NormalizationForm_C);
}

QString digest(const QString& name)
{
    constexpr int digits = 8;
    const QByteArray text = name.normalized(QString::NormalizationForm_C).toUtf8();
    return QString::fromLatin1(
        QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex().left(digits));
}

/// Returns the words in ASCII.
QString asciiPart(const QString& readable)
{
    static const QRegularExpression others(QStringLiteral("[^a-z0-9]+"));
    const QStringList words = QString(readable)
                                  .replace(others, QStringLiteral("-"))
                                  .split(QLatin1Char('-'), Qt::SkipEmptyParts);
    return words.join(QLatin1Char('-'));
}

/// Truncates between characters.
QString cut(QString text, int bytes)
{
    while (text.toUtf8().size() > bytes)
        text.chop(text.at(text.size() - 1).isLowSurrogate() ? 2 : 1);
    return text;
}

} // namespace

QString nameFor(const QString& itemName, const SKindInfo& kind, Letters letters)
{
    const QString all = readablePart(itemName);
    QString readable = letters == Letters::Ascii ? asciiPart(all) : all;
    if (readable.isEmpty())
        return kind.word() + QLatin1Char('-') + digest(itemName);
    const bool isShortened = readable != all;
    if (!isShortened && (Source::isSpecialFolder(readable) || !WindowsName::isStorable(readable)))
        return readable + QLatin1Char('-') + kind.word();
    if (!isShortened && readable.toUtf8().size() <= maxBytes)
        return readable;
    const QString tail = QLatin1Char('-') + digest(itemName);
    return cut(readable, maxBytes - tail.size()) + tail;
}

} // namespace ItemFolder
