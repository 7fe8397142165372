// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "StateText.h"

#include <QLocale>

QString StateText::size(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QString StateText::sizeToFetch(qint64 bytes, bool areAllKnown)
{
    if (areAllKnown)
        return size(bytes);
    return bytes > 0 ? tr("at least %1").arg(size(bytes)) : tr("size unknown");
}

QString StateText::ofState(const SItemState& state)
{
    const QString toFetch = sizeToFetch(state.m_nBytesToFetch, state.m_bBytesKnown);
    switch (state.m_eState) {
    case eFile_Current:
        return tr("Up to date");
    case eFile_Missing:
        return tr("Not downloaded yet, %1").arg(toFetch);
    case eFile_Outdated:
        return tr("Update available, %1").arg(toFetch);
    case eFile_Damaged:
        return tr("Damaged: fetch it again, %1").arg(toFetch);
    case eFile_Unlisted:
        return tr("Ready to use");
    }
    return {};
}

QString StateText::ofUse(qint64 ownBytes, qint64 sharedBytes)
{
    const qint64 bytes = ownBytes + sharedBytes;
    if (bytes == 0)
        return {};
    if (sharedBytes == 0)
        return tr("On this computer: %1").arg(size(bytes));
    return tr("On this computer: %1, of which other items share %2")
        .arg(size(bytes), size(sharedBytes));
}
