// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemSet.h"

#include "catalogue/ItemIndex.h"
#include "host/RegularFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

bool ItemSet::read(const QStringList& operands)
{
    if (operands.size() == 1 && !ItemIndex::isGuid(operands.constFirst()))
        return readFile(operands.constFirst());
    for (const QString& guid : operands) {
        if (!ItemIndex::isGuid(guid))
            return fail(
                QStringLiteral("need takes one FILE or GUIDs; \"%1\" is no GUID").arg(guid));
        m_entries.append({guid, QString()});
    }
    return true;
}

bool ItemSet::readFile(const QString& file)
{
    QFile source(file);
    QString reason;
    if (!RegularFile::open(source, QIODevice::ReadOnly, &reason))
        return fail(QStringLiteral("%1: the file cannot be read: %2").arg(file, reason));
    QByteArray text;
    if (!RegularFile::readAll(source, maxFileBytes, text))
        return fail(
            QStringLiteral("%1: the file cannot be read, or is larger than 16 MiB").arg(file));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        return fail(QStringLiteral("%1: no JSON: %2 at offset %3")
                        .arg(file, error.errorString())
                        .arg(error.offset));
    }
    const QJsonValue items = document.object().value(QStringLiteral("items"));
    if (!document.isArray() && !items.isArray())
        return fail(
            QStringLiteral("%1: neither an array of GUIDs nor an object with \"items\"").arg(file));
    return readItems(file, document.isArray() ? document.array() : items.toArray());
}

bool ItemSet::readItems(const QString& file, const QJsonArray& items)
{
    for (int number = 0; number < items.size(); ++number) {
        const QJsonValue item = items.at(number);
        const QString guid =
            item.isString() ? item.toString() : item[QStringLiteral("guid")].toString();
        if (guid.isEmpty())
            return fail(QStringLiteral("%1: item %2 has no GUID").arg(file).arg(number + 1));
        m_entries.append({guid, item[QStringLiteral("name")].toString()});
    }
    return true;
}

bool ItemSet::fail(const QString& text)
{
    m_error = text;
    return false;
}
