// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/SThemes_a.h"

#include <QDebug>

#include <algorithm>

namespace {

void print(QDebug& debug, const char* what, const SThemes_a::SDependArray& dependencies)
{
    debug << ", " << what << " [";
    for (const SThemes_a::SDependInfo& dependency : dependencies)
        debug << ' ' << (dependency.m_qsGUID.isEmpty() ? QStringLiteral("-") : dependency.m_qsGUID);
    debug << " ]";
}

} // namespace

bool SThemes_a::forEachDependency(const std::function<bool(const SDependInfo&)>& visit) const
{
    for (const SDependArray& element : m_vecItems) {
        if (!std::all_of(element.cbegin(), element.cend(), visit))
            return false;
    }
    return visit(m_aStart[eDependType_Text]) && visit(m_aEnd[eDependType_Text])
        && visit(m_aMask[eDependType_Filter]);
}

QDebug operator<<(QDebug debug, const SThemes_a& theme)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "SThemes_a(" << theme.m_qsGUID << ", \"" << theme.m_qsName << '"';
    for (const SThemes_a::SDependArray& item : theme.m_vecItems)
        print(debug, "item", item);
    print(debug, "start", theme.m_aStart);
    print(debug, "end", theme.m_aEnd);
    print(debug, "mask", theme.m_aMask);
    debug << ')';
    return debug;
}
