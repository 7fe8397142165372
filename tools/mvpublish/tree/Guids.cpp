// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/Guids.h"

#include "catalogue/NoneEntry.h"

#include <QRegularExpression>
#include <QUuid>

namespace Guids {

const QString none = QString(noneEntryGuid);

bool isGuid(const QString& text)
{
    // QUuid accepts GUIDs with a suffix.
    static const QRegularExpression form(
        QStringLiteral("\\A\\{[0-9A-Fa-f]{8}-([0-9A-Fa-f]{4}-){3}[0-9A-Fa-f]{12}\\}\\z"));
    return form.match(text).hasMatch() && !QUuid(text).isNull();
}

bool isProper(const QString& text)
{
    return isGuid(text) && text == text.toUpper();
}

QString fresh()
{
    return QUuid::createUuid().toString().toUpper();
}

} // namespace Guids
