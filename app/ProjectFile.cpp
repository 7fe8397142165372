// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProjectFile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QUuid>

bool ProjectFile::read(const QString& path)
{
    m_path = path;
    m_items.clear();
    m_guids.clear();
    m_error.clear();
    QFile file(path);
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
        return fail(tr("not a file"));
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.errorString());
    const QByteArray text = file.read(maxBytes + 1);
    if (text.size() > maxBytes)
        return fail(tr("more than %1")
                        .arg(QLocale().formattedDataSize(maxBytes, 0, QLocale::DataSizeIecFormat)));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        return fail(placeOf(text, error.offset) + error.errorString());
    if (document.isArray())
        return readList(document.array());
    const QJsonValue list = document.object().value(QLatin1String("items"));
    return list.isArray() ? readList(list.toArray()) : fail(tr("there is no list “items”"));
}

bool ProjectFile::readList(const QJsonArray& list)
{
    for (int index = 0; index < list.size(); ++index) {
        if (!readItem(index + 1, list.at(index)))
            return false;
    }
    return true;
}

bool ProjectFile::readItem(int number, const QJsonValue& value)
{
    const QJsonValue guid =
        value.isObject() ? value.toObject().value(QLatin1String("guid")) : value;
    if (!guid.isString())
        return fail(tr("item %1 has no GUID").arg(number));
    const QUuid id(guid.toString());
    if (id.isNull())
        return fail(tr("item %1: “%2” is not a GUID").arg(number).arg(guid.toString()));
    const Item item{id.toString(), value.toObject().value(QLatin1String("name")).toString()};
    if (!m_guids.contains(item.guid))
        m_items.append(item);
    m_guids.insert(item.guid);
    return true;
}

bool ProjectFile::fail(const QString& reason)
{
    m_items.clear();
    m_error = tr("%1 cannot be opened: %2").arg(m_path, reason);
    return false;
}

/// Returns the line and the column of an offset, with a separator.
QString ProjectFile::placeOf(const QByteArray& text, int offset)
{
    const QByteArray before = text.left(offset);
    const int line = before.count('\n') + 1;
    const int column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return tr("line %1, column %2: ").arg(line).arg(column);
}
