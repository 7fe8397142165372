// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Parts.h"

namespace {

const QByteArray separator("\n=====\n");

} // namespace

Parts::Parts(const QByteArray& input)
{
    int start = 0;
    for (int end = input.indexOf(separator); end >= 0; end = input.indexOf(separator, start)) {
        m_parts.append(input.mid(start, end - start));
        start = end + separator.size();
    }
    m_parts.append(input.mid(start));
}
