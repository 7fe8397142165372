// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Fault.h"

#include <QFile>

#include <algorithm>
#include <iterator>

CountedOperation CountedOperation::fromLine(const QByteArray& line)
{
    const int afterNumber = line.indexOf(' ');
    const int afterName = line.indexOf(' ', afterNumber + 1);
    if (afterNumber < 0 || afterName < 0)
        return {};
    const QByteArray name = line.mid(afterNumber + 1, afterName - afterNumber - 1);
    const auto* const found = std::find(std::begin(operationNames), std::end(operationNames), name);
    if (found == std::end(operationNames))
        return {};
    return {line.left(afterNumber).toInt(),
            static_cast<Operation>(found - std::begin(operationNames)),
            QFile::decodeName(line.mid(afterName + 1))};
}

QString CountedOperation::text() const
{
    QString name = path.section(QLatin1Char('/'), -1);
    if (name.endsWith(QLatin1String(".part")))
        name = QStringLiteral("PART");
    else if (name.endsWith(QLatin1String(" (deleted)")))
        name = QStringLiteral("UNNAMED");
    return QString::fromLatin1(operationNames[static_cast<std::size_t>(operation)])
        + QLatin1Char(' ') + name;
}

QString Fault::text() const
{
    const QString name = QString::fromLatin1(faultNames[static_cast<std::size_t>(kind)]);
    return stays ? QStringLiteral("%1 from %2 on").arg(name).arg(at)
                 : QStringLiteral("%1 at %2").arg(name).arg(at);
}
