// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "States.h"

#include "Console.h"

#include <QJsonObject>

namespace States {

QString word(EFileState state)
{
    switch (state) {
    case eFile_Current:
        return QStringLiteral("current");
    case eFile_Missing:
        return QStringLiteral("missing");
    case eFile_Outdated:
        return QStringLiteral("outdated");
    case eFile_Damaged:
        return QStringLiteral("damaged");
    case eFile_Unlisted:
        break;
    }
    return QStringLiteral("unlisted");
}

QString text(const SItemState& state, int missing)
{
    if (missing > 0)
        return QStringLiteral("%1 missing").arg(missing);
    const bool isChanged = state.m_eState == eFile_Outdated || state.m_eState == eFile_Damaged;
    return isChanged ? word(state.m_eState) : QStringLiteral("ready");
}

QString size(const SItemState& state, int missing)
{
    const bool isWhole = state.m_eState == eFile_Current || state.m_eState == eFile_Unlisted;
    if (isWhole && missing == 0)
        return Console::size(state.m_nBytesOnDisk);
    if (state.m_nBytesToFetch == 0)
        return QStringLiteral("to fetch");
    return QStringLiteral("%1 to fetch").arg(bytes(state.m_nBytesToFetch, state.m_bBytesKnown));
}

QString bytes(qint64 bytes, bool areKnown)
{
    if (areKnown)
        return Console::size(bytes);
    return bytes == 0 ? QStringLiteral("size unknown")
                      : QStringLiteral("%1 or more").arg(Console::size(bytes));
}

void addTo(QJsonObject& object, const SItemState& state)
{
    object.insert(QStringLiteral("state"), word(state.m_eState));
    object.insert(QStringLiteral("bytesOnDisk"), static_cast<double>(state.m_nBytesOnDisk));
    object.insert(QStringLiteral("filesToFetch"), state.m_nToFetch);
    object.insert(QStringLiteral("bytesToFetch"), static_cast<double>(state.m_nBytesToFetch));
    object.insert(QStringLiteral("bytesKnown"), state.m_bBytesKnown);
}

} // namespace States
